// Networks that share one radio's beacon (IEEE 802.11-2020, 9.4.2.45 and 11.1.3.8). The
// transmitting network describes the others, the nontransmitted ones, in Multiple BSSID elements.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

using Bssid = std::array<std::uint8_t, 6>;

// Returns the BSSID of nontransmitted network `index`, 1 to 255: the index is added to the lowest
// `bits` bits, 1 to 8, of the transmitting network's BSSID, without a carry beyond them
// (802.11-2020, 9.4.2.45).
Bssid deriveBssid(const Bssid& transmitted, int bits, std::uint8_t index);

// The elements of one nontransmitted network, joined if they were split.
struct NontransmittedProfile {
  std::uint8_t index = 0;          // 1 to 2^bits - 1
  std::uint16_t capabilities = 0;  // its own Capability Information field
  std::vector<std::uint8_t> elements;
};

struct NontransmittedProfiles {
  int bits = 0;  // the number of low bits of the BSSID that encode the index, 1 to 8
  std::vector<NontransmittedProfile> profiles;  // in order of index, each index once; at most 255
};

// Takes the payloads of all Multiple BSSID elements in order. A profile may continue at the front
// of the next element. Leaves out each profile that is cut off, lacks its capability, index or
// SSID, has an index out of range, or shares its index with a profile of other contents. Returns
// empty if an element is damaged as a whole or if the elements have different `bits`. Linear in the
// number of bytes.
std::optional<NontransmittedProfiles> readNontransmittedProfiles(const std::vector<Bytes>& parts);

}  // namespace wifi_profile::ieee80211
