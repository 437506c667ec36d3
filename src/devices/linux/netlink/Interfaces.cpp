#include "devices/linux/netlink/Interfaces.h"

#include <algorithm>
#include <linux/nl80211.h>
#include <tuple>

#include "analysis/ieee80211/Network.h"

namespace wifi_profile::linux::netlink {

namespace {

using Role = facts::RadioInterface::Role;

Role roleOf(std::optional<std::uint32_t> type, bool hasChannel) {
  switch (type.value_or(NL80211_IFTYPE_UNSPECIFIED)) {
    case NL80211_IFTYPE_STATION:
      return Role::station;
    case NL80211_IFTYPE_AP:
    case NL80211_IFTYPE_AP_VLAN:
      return Role::accessPoint;
    case NL80211_IFTYPE_NAN:
      return Role::peerLink;
    // An interface without a channel is down or alone: it has no peer link.
    case NL80211_IFTYPE_P2P_CLIENT:
    case NL80211_IFTYPE_P2P_GO:
    case NL80211_IFTYPE_ADHOC:
    case NL80211_IFTYPE_MESH_POINT:
      return hasChannel ? Role::peerLink : Role::other;
    default:
      return Role::other;
  }
}

}  // namespace

std::string addressText(ieee80211::Bytes octets) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  constexpr std::size_t kOctets = 6;
  std::string text;
  if (octets.size() != kOctets) return text;
  for (const std::uint8_t octet : octets) {
    if (!text.empty()) text += ':';
    text += kDigits[octet >> 4U];
    text += kDigits[octet & 0xFU];
  }
  return text;
}

std::optional<WifiInterface> interfaceOf(const Attributes& attributes) {
  const auto wiphy = attributes.number<std::uint32_t>(NL80211_ATTR_WIPHY);
  if (!wiphy) return std::nullopt;
  WifiInterface interface;
  interface.wiphy = *wiphy;
  interface.name = attributes.text(NL80211_ATTR_IFNAME).value_or("");
  interface.index = attributes.number<std::int32_t>(NL80211_ATTR_IFINDEX).value_or(0);
  interface.mac = addressText(attributes.find(NL80211_ATTR_MAC).value_or(ieee80211::Bytes()));
  const auto ssid = attributes.find(NL80211_ATTR_SSID);
  if (ssid && !ssid->empty() && ssid->size() <= ieee80211::kLongestSsid) {
    interface.ssid = ieee80211::toText(*ssid);
  }
  const auto frequency = attributes.number<std::int32_t>(NL80211_ATTR_WIPHY_FREQ);
  if (frequency && *frequency > 0) interface.frequency = *frequency;
  interface.role = roleOf(attributes.number<std::uint32_t>(NL80211_ATTR_IFTYPE),
                          interface.frequency.has_value());
  return interface;
}

void sortForUse(std::vector<WifiInterface>& interfaces) {
  // A station has a channel only while it is joined. Some kernels report no name even then.
  const auto key = [](const WifiInterface& one) {
    return std::tuple(one.role != Role::station, !one.ssid && !one.frequency, one.index);
  };
  std::ranges::stable_sort(interfaces, {}, key);
}

}  // namespace wifi_profile::linux::netlink
