// The services behind a network, from its elements; they decide whether it is a Passpoint network.
// Parsers take an element's payload and return empty if it is damaged. Pure functions; any thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// Interworking (IEEE 802.11-2020, 9.4.2.91).
struct Interworking {
  // 0 private, 1 private with guest access, 2 chargeable public, 3 free public, 4 personal devices,
  // 5 emergency services only, 14 test, 15 wildcard; others are reserved.
  std::uint8_t accessNetworkType = 0;
  bool internet = false;              // the network gives access to the Internet
  bool additionalStepNeeded = false;  // such as accepting terms on a web page
  std::optional<std::uint8_t> venueGroup = std::nullopt;
  std::optional<std::uint8_t> venueType = std::nullopt;
  std::optional<std::array<std::uint8_t, 6>> hessid =
      std::nullopt;  // the same for all access points of one network

  bool operator==(const Interworking&) const = default;
};

std::optional<Interworking> parseInterworking(Bytes payload);

// The organisations whose customers may join the network (802.11-2020, 9.4.2.95).
struct RoamingConsortium {
  std::uint8_t more = 0;  // number of further ones the network names on request; 255: at least 255
  std::vector<std::string> organizations;  // 1 to 3 identifiers of 3 to 15 bytes

  bool operator==(const RoamingConsortium&) const = default;
};

std::optional<RoamingConsortium> parseRoamingConsortium(Bytes payload);

// Hotspot 2.0 Indication (Wi-Fi Alliance, Hotspot 2.0).
struct Hotspot {
  std::uint8_t release = 1;              // 1 to 16
  bool groupForwardingDisabled = false;  // stations do not receive each other's broadcasts
  std::optional<std::uint16_t> anqpDomain = std::nullopt;

  bool operator==(const Hotspot&) const = default;
};

// The payload after the vendor's type.
std::optional<Hotspot> parseHotspot(Bytes payload);

}  // namespace wifi_profile::ieee80211
