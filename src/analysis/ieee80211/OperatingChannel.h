// The channels that a network uses. Pure functions; any thread.
#pragma once

#include <optional>
#include <vector>

#include "analysis/ieee80211/ElementSet.h"
#include "analysis/ieee80211/Extent.h"

namespace wifi_profile::ieee80211 {

struct OperatingChannel {
  Band band = Band::ghz2;
  int primary = 0;               // satisfies isTwentyMHzChannel
  std::optional<Extent> extent;  // empty: unknown

  bool operator==(const OperatingChannel&) const = default;
};

// Reads the channel from the elements, from DS Parameter Set to EHT Operation. `frequency`, in MHz,
// is where the frame was received; it determines the channel only if no element names one, because
// beacons of 2.4 GHz are also received on neighbouring channels. A DS Parameter Set counts only in
// 2.4 GHz. Returns empty if elements contradict each other or the band of the frequency. If only
// those about the width contradict each other, the extent alone is empty. The extent is also empty
// if the set is truncated, because the element with the largest width comes last.
std::optional<OperatingChannel> readOperatingChannel(const ElementSet& elements,
                                                     std::optional<int> frequency);

// The 20 MHz channels of the band that the network disturbs, in order. In 5 and 6 GHz: the channels
// it occupies, without the punctured ones. In 2.4 GHz: the channels whose middle is less than 25
// MHz away, because 802.11-2020, 15.4.4.3 and 16.3.6.3, lets networks operate side by side at that
// distance. Empty if the extent is unknown.
std::vector<int> overlappedChannels(const OperatingChannel& channel);

// True if one of the network's channels requires radar detection. Empty if the extent is unknown
// and the primary channel does not require it.
std::optional<bool> needsRadarDetection(const OperatingChannel& channel);

}  // namespace wifi_profile::ieee80211
