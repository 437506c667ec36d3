// The part of the band that a network occupies. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/ieee80211/Channels.h"
#include "analysis/ieee80211/OperationElements.h"

namespace wifi_profile::ieee80211 {

enum class Width { mhz20, mhz40, mhz80, mhz160, mhz80Plus80, mhz320 };

// The part of the band that a network occupies. `center` and `secondCenter` are channel numbers.
struct Extent {
  Width width = Width::mhz20;
  int center = 0;        // middle of the whole width; with mhz80Plus80, of the primary half
  int secondCenter = 0;  // with mhz80Plus80, middle of the other half; otherwise 0
  std::optional<int> secondary =
      std::nullopt;  // the 20 MHz channel beside the primary one; empty with mhz20
  // The channels that are left out (802.11be). Bit 0 is the lowest 20 MHz channel. Never the
  // primary one.
  std::uint16_t punctured = 0;

  bool operator==(const Extent&) const = default;
};

// The number of 20 MHz channels in a width, 1 to 16; with mhz80Plus80, in each half.
int twentyMHzChannelsOf(Width width);

// The lowest 20 MHz channel of a width around a middle. Both are channel numbers.
int lowestOf(Width width, int center);

// The extent of a network with the 20 MHz channel `primary`, from its elements. Empty if they are
// impossible: a width or middle that the band does not have, a width that does not contain the
// primary channel, or a reserved combination.
std::optional<Extent> extentOfTwentyMHz(Band band, int primary);
std::optional<Extent> extentOfHt(Band band, const HtOperation& ht);
std::optional<Extent> extentOfVht(Band band, const HtOperation& ht, const WideOperation& vht);
std::optional<Extent> extentOfSixGhz(const SixGhzOperation& operation);
std::optional<Extent> extentOfEht(Band band, int primary, const WideOperation& wide,
                                  std::uint16_t disabled);

}  // namespace wifi_profile::ieee80211
