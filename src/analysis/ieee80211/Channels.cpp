#include "analysis/ieee80211/Channels.h"

namespace wifi_profile::ieee80211 {
namespace {

constexpr int kStep = 5;  // MHz between neighbouring channel numbers

// 802.11-2020, 15.4.4.3. Channel 14 is not at the regular distance.
constexpr int kStart2 = 2407;
constexpr int kChannel14 = 2484;
// 802.11-2020, 17.3.8.4.2: 5000 MHz plus 5 for each number.
constexpr int kStart5 = 5000;
constexpr int kLeast5 = 32;
constexpr int kMost5 = 177;
// 802.11ax, 27.3.23.2: 5950 MHz plus 5 for each number, and channel 2 of operating class 136.
constexpr int kStart6 = 5950;
constexpr int kMost6 = 233;
constexpr int kChannel2 = 5935;

bool isWithin(int value, int least, int most) { return value >= least && value <= most; }

// A run of 20 MHz channels in steps of 4. Wide channels begin at its start or at a multiple of
// their own width above it.
bool isInRun(int lowest, int count, int first, int last, int pitch) {
  return isWithin(lowest, first, last) && (lowest - first) % (4 * pitch) == 0 &&
         lowest + 4 * (count - 1) <= last;
}

bool isBlock(Band band, int lowest, int count) {
  if (band == Band::ghz5) {
    return isInRun(lowest, count, 36, 64, count) || isInRun(lowest, count, 100, 144, count) ||
           isInRun(lowest, count, 149, 177, count);
  }
  // 320 MHz channels begin every 160 MHz (802.11be, 320-1 and 320-2).
  return isInRun(lowest, count, 1, kMost6, count == 16 ? 8 : count);
}

}  // namespace

std::optional<Band> bandOf(int frequency) {
  if (isWithin(frequency, kStart2 + kStep, kChannel14)) return Band::ghz2;
  if (isWithin(frequency, kStart5 + kStep * kLeast5, kStart5 + kStep * kMost5)) return Band::ghz5;
  if (isWithin(frequency, kChannel2, kStart6 + kStep * kMost6)) return Band::ghz6;
  return std::nullopt;
}

std::optional<int> channelOf(int frequency) {
  const auto band = bandOf(frequency);
  if (!band) return std::nullopt;
  if (frequency == kChannel14) return 14;
  if (frequency == kChannel2) return 2;
  const int start = *band == Band::ghz2 ? kStart2 : *band == Band::ghz5 ? kStart5 : kStart6;
  const int channel = (frequency - start) / kStep;
  if (frequencyOf(*band, channel) != frequency) return std::nullopt;
  return channel;
}

std::optional<int> frequencyOf(Band band, int channel) {
  switch (band) {
    case Band::ghz2:
      if (channel == 14) return kChannel14;
      if (isWithin(channel, 1, 13)) return kStart2 + kStep * channel;
      return std::nullopt;
    case Band::ghz5:
      if (isWithin(channel, kLeast5, kMost5)) return kStart5 + kStep * channel;
      return std::nullopt;
    case Band::ghz6:
      if (channel == 2) return kChannel2;
      if (isWithin(channel, 1, kMost6)) return kStart6 + kStep * channel;
      return std::nullopt;
  }
  return std::nullopt;
}

bool isTwentyMHzChannel(Band band, int channel) {
  if (band == Band::ghz2) return isWithin(channel, 1, 14);
  return isBlock(band, channel, 1) || (band == Band::ghz6 && channel == 2);
}

bool isWideChannel(Band band, int lowest, int count) {
  return band != Band::ghz2 && isBlock(band, lowest, count);
}

bool needsRadarDetection(int channel) {
  return isWithin(channel, 52, 64) || isWithin(channel, 100, 144);
}

}  // namespace wifi_profile::ieee80211
