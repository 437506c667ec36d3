// The Wi-Fi interfaces as nl80211 lists them. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checks/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::machine {

struct WifiInterface {
  std::string name;         // such as wlan0; empty: it is not a network interface
  int index = 0;            // the kernel's number of it, never used again; 0: as above
  std::uint32_t wiphy = 0;  // the kernel's number of its radio
  std::string mac;          // as checks::Link::bssid; its own address, which may be a random one
  checks::RadioInterface::Role role = checks::RadioInterface::Role::other;
  std::optional<std::string> ssid;  // of the joined network, 1 to 32 bytes; of an access point, its
  std::optional<int> frequency;     // MHz, of the primary channel

  bool operator==(const WifiInterface&) const = default;
};

// From the attributes of an answer to NL80211_CMD_GET_INTERFACE. Nothing without a radio.
std::optional<WifiInterface> interfaceOf(const Attributes& attributes);

// Stations before others, joined ones before those that are not, then by index.
void sortForUse(std::vector<WifiInterface>& interfaces);

// Six octets as lower-case hexadecimal digits with colons; empty for any other number of them.
std::string addressText(ieee80211::Bytes octets);

}  // namespace wifi_profile::machine
