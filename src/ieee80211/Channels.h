// Channels, bands and frequencies (IEEE 802.11-2020, annex E; 802.11ax and 802.11be for 6 GHz).
// Frequencies are in MHz, at the middle of a channel. Pure functions; any thread.
#pragma once

#include <optional>

namespace wifi_profile::ieee80211 {

enum class Band { ghz2, ghz5, ghz6 };  // 2.4, 5 and 6 GHz

// The band of a channel's frequency: 2412 to 2484, 5160 to 5885, 5935 to 7115. Nothing for others.
std::optional<Band> bandOf(int frequency);

// The channel number of a frequency in its band; the middles of wide channels have numbers, too.
// Nothing where the band has no number: 2.4 GHz has 14 of them, 5 and 6 GHz one every 5 MHz.
std::optional<int> channelOf(int frequency);

// The other way round.
std::optional<int> frequencyOf(Band band, int channel);

// Whether a channel number is one of those that a 20 MHz wide network may have: 1 to 14; 36 to 64,
// 100 to 144 and 149 to 177 in steps of 4; 1 to 233 in steps of 4, and 2.
bool isTwentyMHzChannel(Band band, int channel);

// Whether `count` neighbouring 20 MHz channels (2, 4, 8 or 16) from `lowest` on make one of the
// wide channels of 5 or 6 GHz. NO for 2.4 GHz, which has no such pattern.
bool isWideChannel(Band band, int lowest, int count);

// Whether a 20 MHz channel of the 5 GHz band may be used only by those who look out for radar
// (DFS): 52 to 64 and 100 to 144, that is 5250 to 5350 and 5470 to 5730 MHz (in the USA 47 CFR
// 15.407(h)(2), in Europe EN 301 893).
bool needsRadarDetection(int channel);

}  // namespace wifi_profile::ieee80211
