// How much of the band a network takes. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>

#include "ieee80211/Channels.h"
#include "ieee80211/OperationElements.h"

namespace wifi_profile::ieee80211 {

enum class Width { mhz20, mhz40, mhz80, mhz160, mhz80Plus80, mhz320 };

// How much of the band a network takes. `center` and `secondCenter` are numbers of channels.
struct Extent {
  Width width = Width::mhz20;
  int center = 0;        // the middle of it all; with mhz80Plus80 of the primary half
  int secondCenter = 0;  // of the other half with mhz80Plus80, otherwise 0
  std::optional<int> secondary =
      std::nullopt;  // the 20 MHz channel beside the primary one; nothing with mhz20
  // Bit 0 is the lowest 20 MHz channel: those that are left out (802.11be). Never the primary one.
  std::uint16_t punctured = 0;

  bool operator==(const Extent&) const = default;
};

// The 20 MHz channels of a width, 1 to 16; with mhz80Plus80 those of each half.
int twentyMHzChannelsOf(Width width);

// The lowest of them around a middle, both as numbers of channels.
int lowestOf(Width width, int center);

// The extent of a network on 20 MHz channel `primary`, from what its elements say. Nothing where
// they say what cannot be: a width or a middle that the band does not have, or that does not have
// the primary channel, or a reserved combination.
std::optional<Extent> extentOfTwentyMHz(Band band, int primary);
std::optional<Extent> extentOfHt(Band band, const HtOperation& ht);
std::optional<Extent> extentOfVht(Band band, const HtOperation& ht, const WideOperation& vht);
std::optional<Extent> extentOfSixGhz(const SixGhzOperation& operation);
std::optional<Extent> extentOfEht(Band band, int primary, const WideOperation& wide,
                                  std::uint16_t disabled);

}  // namespace wifi_profile::ieee80211
