#include "analysis/ieee80211/Suites.h"

#include "analysis/ieee80211/Network.h"

namespace wifi_profile::ieee80211 {
namespace {

constexpr std::size_t kSuiteSize = 4;
constexpr std::size_t kPmkidSize = 16;

Suite takeSuite(ByteReader& reader) {
  Suite suite;
  suite.oui = reader.oui();
  suite.type = reader.octet();
  return suite;
}

std::vector<Suite> takeSuites(ByteReader& reader) {
  const std::size_t count = reader.number16();
  ByteReader list(reader.take(count * kSuiteSize));
  std::vector<Suite> suites;
  while (!list.atEnd()) suites.push_back(takeSuite(list));
  return suites;
}

// Reads the fields from the group cipher to the capabilities, which RSN and WPA have in common.
RsnElement takeSuiteLists(ByteReader& reader) {
  RsnElement element;
  if (!reader.atEnd()) element.group = takeSuite(reader);
  if (!reader.atEnd()) element.pairwise = takeSuites(reader);
  if (!reader.atEnd()) element.akms = takeSuites(reader);
  if (!reader.atEnd()) element.capabilities = reader.number16();
  return element;
}

}  // namespace

std::optional<RsnElement> parseRsn(Bytes payload) {
  ByteReader reader(payload);
  if (reader.number16() != 1) return std::nullopt;
  RsnElement element = takeSuiteLists(reader);
  if (!reader.atEnd()) reader.take(reader.number16() * kPmkidSize);
  if (!reader.atEnd()) element.groupManagement = takeSuite(reader);
  if (reader.failed()) return std::nullopt;
  return element;
}

std::optional<RsnElement> parseWpa(Bytes payload) {
  ByteReader reader(payload);
  if (reader.number16() != 1) return std::nullopt;
  RsnElement element = takeSuiteLists(reader);
  if (reader.failed()) return std::nullopt;
  return element;
}

std::optional<RsnExtension> parseRsnExtension(Bytes payload) {
  // Bits 0 to 3 of the first octet: the number of octets after it.
  if (payload.empty() || payload.size() < (payload[0] & 0x0FU) + 1U) return std::nullopt;
  return RsnExtension{.saeHashToElement = (payload[0] & 0x20U) != 0};
}

std::optional<OweTransition> parseOweTransition(Bytes payload) {
  ByteReader reader(payload);
  OweTransition twin;
  const Bytes bssid = reader.take(twin.bssid.size());
  std::ranges::copy(bssid, twin.bssid.begin());
  twin.ssid = toText(reader.take(reader.octet()));
  if (!reader.atEnd()) {
    twin.operatingClass = reader.octet();
    twin.channel = reader.octet();
  }
  if (reader.failed() || twin.ssid.empty() || twin.ssid.size() > kLongestSsid) return std::nullopt;
  return twin;
}

}  // namespace wifi_profile::ieee80211
