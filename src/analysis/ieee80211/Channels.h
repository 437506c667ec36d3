// Channels, bands and frequencies (IEEE 802.11-2020, annex E; 802.11ax and 802.11be for 6 GHz).
// Frequencies are in MHz and mean the middle of a channel. Pure functions; any thread.
#pragma once

#include <optional>

namespace wifi_profile::ieee80211 {

enum class Band { ghz2, ghz5, ghz6 };  // 2.4, 5 and 6 GHz

// Returns the band of a channel's frequency: 2412 to 2484, 5160 to 5885 or 5935 to 7115 MHz. Empty
// for other frequencies.
std::optional<Band> bandOf(int frequency);

// Returns the channel number of a frequency in its band; the middles of wide channels have numbers,
// too. Empty if the band has no number there: 2.4 GHz has 14 numbers, 5 and 6 GHz have one every 5
// MHz.
std::optional<int> channelOf(int frequency);

// The reverse of channelOf.
std::optional<int> frequencyOf(Band band, int channel);

// True if a 20 MHz wide network may use this channel number. 2.4 GHz: 1 to 14. 5 GHz: 36 to 64, 100
// to 144 and 149 to 177 in steps of 4. 6 GHz: 1 to 233 in steps of 4, and 2.
bool isTwentyMHzChannel(Band band, int channel);

// True if `count` neighbouring 20 MHz channels (2, 4, 8 or 16), starting at `lowest`, form one of
// the wide channels of 5 or 6 GHz. False for 2.4 GHz, which has no such pattern.
bool isWideChannel(Band band, int lowest, int count);

// True if a 20 MHz channel of the 5 GHz band requires radar detection (DFS): 52 to 64 and 100 to
// 144, which is 5250 to 5350 and 5470 to 5730 MHz (in the USA 47 CFR 15.407(h)(2), in Europe EN 301
// 893).
bool needsRadarDetection(int channel);

}  // namespace wifi_profile::ieee80211
