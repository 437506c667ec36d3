// The services behind a network, from its elements; they decide whether it is a Passpoint network.
// Parsers take an element's payload and return empty if it is damaged. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// Interworking (IEEE 802.11-2020, 9.4.2.91).
struct Interworking {
  // 0 private, 1 private with guest access, 2 chargeable public, 3 free public, 4 personal devices,
  // 5 emergency services only, 14 test, 15 wildcard; others are reserved.
  std::uint8_t accessNetworkType = 0;
  bool additionalStepNeeded = false;  // such as accepting terms on a web page

  bool operator==(const Interworking&) const = default;
};

std::optional<Interworking> parseInterworking(Bytes payload);

// Returns whether the payload, after the vendor's type, is a complete Hotspot 2.0 Indication (Wi-Fi
// Alliance, Hotspot 2.0).
bool isHotspotIndication(Bytes payload);

}  // namespace wifi_profile::ieee80211
