// What a network says about the services behind it, which decides whether it is a Passpoint.
// Parsers take an element's payload and give nothing for one that is damaged. Pure functions; any
// thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// Interworking (IEEE 802.11-2020, 9.4.2.91).
struct Interworking {
  // 0 private, 1 private with guests, 2 public for money, 3 public, 4 personal devices, 5
  // emergency services only, 14 test, 15 wildcard; others are reserved.
  std::uint8_t accessNetworkType = 0;
  bool internet = false;              // there is a way to the Internet
  bool additionalStepNeeded = false;  // such as a page to agree to
  std::optional<std::uint8_t> venueGroup = std::nullopt;
  std::optional<std::uint8_t> venueType = std::nullopt;
  std::optional<std::array<std::uint8_t, 6>> hessid =
      std::nullopt;  // the same for all of one network's points

  bool operator==(const Interworking&) const = default;
};

std::optional<Interworking> parseInterworking(Bytes payload);

// Who lets its customers in here (802.11-2020, 9.4.2.95).
struct RoamingConsortium {
  std::uint8_t more = 0;  // how many others the network would tell if asked; 255: at least as many
  std::vector<std::string> organizations;  // 1 to 3 identifiers of 3 to 15 bytes

  bool operator==(const RoamingConsortium&) const = default;
};

std::optional<RoamingConsortium> parseRoamingConsortium(Bytes payload);

// Hotspot 2.0 Indication (Wi-Fi Alliance, Hotspot 2.0).
struct Hotspot {
  std::uint8_t release = 1;              // 1 to 16
  bool groupForwardingDisabled = false;  // members get no broadcasts of each other
  std::optional<std::uint16_t> anqpDomain = std::nullopt;

  bool operator==(const Hotspot&) const = default;
};

// The payload after the vendor's type.
std::optional<Hotspot> parseHotspot(Bytes payload);

}  // namespace wifi_profile::ieee80211
