// Networks that share one radio's beacon (IEEE 802.11-2020, 9.4.2.45 and 11.1.3.8): the one that
// sends it describes the others, the nontransmitted ones, in Multiple BSSID elements.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

using Bssid = std::array<std::uint8_t, 6>;

// The BSSID of nontransmitted network `index`, 1 to 255: in the lowest `bits` of the transmitting
// one's, 1 to 8, the index is added without carry beyond them (802.11-2020, 9.4.2.45).
Bssid deriveBssid(const Bssid& transmitted, int bits, std::uint8_t index);

// One nontransmitted network's elements, put together where they were split.
struct NontransmittedProfile {
  std::uint8_t index = 0;          // 1 to 2 to the power of `bits`, less 1
  std::uint16_t capabilities = 0;  // its own Capability Information field
  std::vector<std::uint8_t> elements;
};

struct NontransmittedProfiles {
  int bits = 0;                                 // of the BSSID that are the index's, 1 to 8
  std::vector<NontransmittedProfile> profiles;  // by index, each once; at most 255
};

// Takes the payloads of all Multiple BSSID elements in order. A profile may end in one and go on at
// the front of the next one. Left out is every profile that is cut off, that lacks its capability,
// its index or its SSID, that names an index out of range, or whose index comes again with other
// contents. Nothing when an element is damaged as a whole, or when they do not agree on `bits`.
// Linear in the bytes.
std::optional<NontransmittedProfiles> readNontransmittedProfiles(const std::vector<Bytes>& parts);

}  // namespace wifi_profile::ieee80211
