// Which generations of the standard a network speaks. Pure functions; any thread.
#pragma once

#include <optional>

#include "ieee80211/Channels.h"
#include "ieee80211/ElementSet.h"
#include "ieee80211/Network.h"

namespace wifi_profile::ieee80211 {

// Generations whose elements or rates are there whole.
struct PhyModes {
  bool a = false;   // OFDM rates in 5 GHz
  bool b = false;   // 1, 2, 5.5 or 11 Mbit/s in 2.4 GHz
  bool g = false;   // OFDM rates in 2.4 GHz
  bool n = false;   // HT
  bool ac = false;  // VHT, which the standard does not have in 2.4 GHz (802.11-2020, 21.1.1)
  bool ax = false;  // HE
  bool be = false;  // EHT

  bool operator==(const PhyModes&) const = default;
};

// Without a band neither a, b, g nor ac.
PhyModes readPhyModes(const ElementSet& elements, const std::optional<Rates>& rates,
                      std::optional<Band> band);

}  // namespace wifi_profile::ieee80211
