// The generations of the standard that a network supports. Pure functions; any thread.
#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "analysis/ieee80211/Channels.h"
#include "analysis/ieee80211/ElementSet.h"
#include "analysis/ieee80211/Network.h"

namespace wifi_profile::ieee80211 {

// The generations whose element is complete or whose rates are present.
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

// The name of each generation, oldest first.
inline constexpr std::array<std::pair<std::string_view, bool PhyModes::*>, 7> kPhyModeNames{
    {{"802.11a", &PhyModes::a},
     {"802.11b", &PhyModes::b},
     {"802.11g", &PhyModes::g},
     {"802.11n", &PhyModes::n},
     {"802.11ac", &PhyModes::ac},
     {"802.11ax", &PhyModes::ax},
     {"802.11be", &PhyModes::be}}};

// Without a band, a, b, g and ac stay false.
PhyModes readPhyModes(const ElementSet& elements, const std::optional<Rates>& rates,
                      std::optional<Band> band);

}  // namespace wifi_profile::ieee80211
