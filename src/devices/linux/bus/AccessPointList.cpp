#include "devices/linux/bus/AccessPointList.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <string>

#include "analysis/ieee80211/Network.h"

namespace wifi_profile::linux::bus {
namespace {

using ieee80211::Security;
using std::chrono::milliseconds;

// Returns the address in lower case; empty if the text is not an address.
std::string addressFrom(std::string text) {
  constexpr std::size_t kLength = 17;
  if (text.size() != kLength) return "";
  for (std::size_t at = 0; at < kLength; ++at) {
    const auto letter = static_cast<unsigned char>(text[at]);
    if (at % 3 == 2 ? letter != ':' : std::isxdigit(letter) == 0) return "";
    text[at] = static_cast<char>(std::tolower(letter));
  }
  return text;
}

// Flags of NetworkManager's API: NM80211ApFlags and NM80211ApSecurityFlags.
constexpr std::int64_t kPrivacy = 0x1;
constexpr std::int64_t kPsk = 0x100;
constexpr std::int64_t k8021x = 0x200;
constexpr std::int64_t kSae = 0x400;
constexpr std::int64_t kOwe = 0x800;
constexpr std::int64_t kOweTransition = 0x1000;  // the open network of an OWE transition pair
constexpr std::int64_t kSuiteB192 = 0x2000;

Security securityFrom(std::int64_t flags, std::int64_t wpa, std::int64_t rsn) {
  const auto has = [](std::int64_t set, std::int64_t flag) { return (set & flag) != 0; };
  if (has(rsn, kSae)) return has(rsn, kPsk) ? Security::wpa2Wpa3Personal : Security::wpa3Personal;
  if (has(rsn, kPsk)) return Security::wpa2Personal;
  if (has(rsn, kSuiteB192)) return Security::wpa3Enterprise;
  if (has(rsn, k8021x)) return Security::wpa2Enterprise;
  if (has(rsn, kOwe)) return Security::owe;
  if (has(wpa, kPsk)) return Security::wpaPersonal;
  if (has(wpa, k8021x)) return Security::wpaEnterprise;
  if (wpa != 0 || (rsn & ~kOweTransition) != 0) return Security::unknown;
  return has(flags, kPrivacy) ? Security::wep : Security::none;
}

Security securityFrom(const BusValue& properties) {
  const auto flags = properties.at("Flags").integer();
  const auto wpa = properties.at("WpaFlags").integer();
  const auto rsn = properties.at("RsnFlags").integer();
  return flags && wpa && rsn ? securityFrom(*flags, *wpa, *rsn) : Security::unknown;
}

// NetworkManager maps -100 to -40 dBm to percent.
std::optional<int> signalFrom(const BusValue& percent) {
  const auto strength = percent.integer();
  if (!strength || *strength < 0 || *strength > 100) return std::nullopt;
  return -40 - static_cast<int>(((100 - *strength) * 3 + 4) / 5);
}

std::optional<ieee80211::OperatingChannel> channelFrom(const BusValue& frequency) {
  const auto number = frequency.integer();
  if (!number || *number <= 0 || *number > 10'000) return std::nullopt;
  const auto band = ieee80211::bandOf(static_cast<int>(*number));
  const auto channel = ieee80211::channelOf(static_cast<int>(*number));
  if (!band || !channel || !ieee80211::isTwentyMHzChannel(*band, *channel)) return std::nullopt;
  return ieee80211::OperatingChannel{.band = *band, .primary = *channel, .extent = std::nullopt};
}

std::optional<milliseconds> ageFrom(const BusValue& lastSeen, std::chrono::nanoseconds sinceBoot) {
  const auto seconds = lastSeen.integer();
  const auto now = std::chrono::duration_cast<milliseconds>(sinceBoot);
  if (!seconds || *seconds < 0 || *seconds > now.count()) return std::nullopt;
  return std::max(now - std::chrono::seconds(*seconds), milliseconds(0));
}

}  // namespace

std::optional<facts::AccessPoint> accessPointFrom(const BusValue& properties,
                                                  std::chrono::nanoseconds sinceBoot) {
  facts::AccessPoint point;
  point.isSecondHand = true;
  point.bssid = addressFrom(properties.at("HwAddress").text().value_or(""));
  if (point.bssid.empty()) return std::nullopt;
  if (const auto name = properties.at("Ssid").bytes()) {
    const bool isHidden = std::ranges::all_of(*name, [](char byte) { return byte == 0; });
    if (isHidden) point.hidesName = true;
    if (!isHidden && name->size() <= ieee80211::kLongestSsid) point.ssid = *name;
  }
  point.signal = signalFrom(properties.at("Strength"));
  point.channel = channelFrom(properties.at("Frequency"));
  point.security = securityFrom(properties);
  point.age = ageFrom(properties.at("LastSeen"), sinceBoot);
  return point;
}

void addSecondHand(const std::vector<facts::AccessPoint>& listed, milliseconds oldest,
                   facts::Scan& scan) {
  std::set<std::string> known;
  for (const facts::AccessPoint& point : scan.accessPoints) known.insert(point.bssid);
  for (const facts::AccessPoint& point : listed) {
    if (!point.age || *point.age > oldest || !known.insert(point.bssid).second) continue;
    scan.accessPoints.push_back(point);
  }
}

}  // namespace wifi_profile::linux::bus
