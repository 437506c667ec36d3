// Where in the air a network is. Pure functions; any thread.
#pragma once

#include <optional>
#include <vector>

#include "ieee80211/ElementSet.h"
#include "ieee80211/Extent.h"

namespace wifi_profile::ieee80211 {

struct OperatingChannel {
  Band band = Band::ghz2;
  int primary = 0;               // always one of isTwentyMHzChannel
  std::optional<Extent> extent;  // nothing: not known

  bool operator==(const OperatingChannel&) const = default;
};

// The channel as the elements tell it, from DS Parameter Set to EHT Operation; `frequency`, in MHz,
// is where the frame was heard, which counts where no element tells the channel (beacons of 2.4
// GHz are heard on neighbouring channels, too); a DS Parameter Set counts in 2.4 GHz only. Elements
// that contradict each other or the band of the frequency make the channel unknown; those about the
// width, the extent alone. A set that is truncated has no extent, because the widest element comes
// last.
std::optional<OperatingChannel> readOperatingChannel(const ElementSet& elements,
                                                     std::optional<int> frequency);

// The 20 MHz channels of the band that the network disturbs, in order. In 5 and 6 GHz those that
// it takes, without the punctured ones; in 2.4 GHz all whose middle is less than 25 MHz away, the
// distance at which 802.11-2020, 15.4.4.3 and 16.3.6.3, lets networks work side by side. Empty when
// the extent is not known.
std::vector<int> overlappedChannels(const OperatingChannel& channel);

// Whether one of the network's channels needs radar detection; nothing when its primary one does
// not and the extent is not known.
std::optional<bool> needsRadarDetection(const OperatingChannel& channel);

}  // namespace wifi_profile::ieee80211
