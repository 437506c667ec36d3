// The Wi-Fi interfaces that nl80211 lists. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::linux::netlink {

struct WifiInterface {
  std::string name;         // such as wlan0; empty: not a network interface
  int index = 0;            // the kernel's number, never reused; 0: not a network interface
  std::uint32_t wiphy = 0;  // the kernel's number of the radio
  std::string mac;          // the interface's own, perhaps random; format as checks::Link::bssid
  facts::RadioInterface::Role role = facts::RadioInterface::Role::other;
  std::optional<std::string> ssid;  // the joined network's, or an access point's own; 1 to 32 bytes
  std::optional<int> frequency;     // MHz, of the primary channel

  bool operator==(const WifiInterface&) const = default;
};

// Parses an answer to NL80211_CMD_GET_INTERFACE. Empty without a radio.
std::optional<WifiInterface> interfaceOf(const Attributes& attributes);

// Sorts stations before others, joined ones before those that are not, then by index.
void sortForUse(std::vector<WifiInterface>& interfaces);

// Formats six octets as lower-case hexadecimal digits with colons; empty for any other number of
// octets.
std::string addressText(ieee80211::Bytes octets);

}  // namespace wifi_profile::linux::netlink
