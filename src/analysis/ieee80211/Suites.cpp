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
  if (!reader.atEnd()) takeSuite(reader);   // cipher of broadcasts
  if (!reader.atEnd()) takeSuites(reader);  // pairwise ciphers
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
  if (!reader.atEnd()) takeSuite(reader);  // cipher of protected management broadcasts
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

bool isOweTransition(Bytes payload) {
  constexpr std::size_t kBssid = 6;
  ByteReader reader(payload);
  reader.take(kBssid);  // of the twin
  const std::size_t ssidSize = reader.octet();
  reader.take(ssidSize);
  if (!reader.atEnd()) reader.take(2);  // operating class and channel of the twin
  return !reader.failed() && ssidSize > 0 && ssidSize <= kLongestSsid;
}

}  // namespace wifi_profile::ieee80211
