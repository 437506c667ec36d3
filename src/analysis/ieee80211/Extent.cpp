#include "analysis/ieee80211/Extent.h"

#include <cstdlib>

namespace wifi_profile::ieee80211 {
namespace {

// The extent of `width` around `center`. Empty if the band has no such channel or it lacks the
// primary channel.
std::optional<Extent> extentAround(Band band, int primary, Width width, int center) {
  Extent extent{.width = width, .center = center, .secondCenter = 0, .secondary = {}};
  if (width == Width::mhz20) return center == primary ? std::optional(extent) : std::nullopt;
  if (band == Band::ghz2) {
    const int secondary = 2 * center - primary;
    const bool isFour = std::abs(secondary - primary) == 4 && secondary >= 1 && secondary <= 13;
    if (width != Width::mhz40 || !isFour || primary > 13) return std::nullopt;
    extent.secondary = secondary;
    return extent;
  }
  const int count = twentyMHzChannelsOf(width);
  const int lowest = lowestOf(width, center);
  const int above = primary - lowest;
  if (!isWideChannel(band, lowest, count) || above < 0 || above % 4 != 0 || above >= 4 * count) {
    return std::nullopt;
  }
  extent.secondary = above / 4 % 2 == 0 ? primary + 4 : primary - 4;
  return extent;
}

// Two middles: that of the primary 80 MHz, and that of either 160 MHz or another 80 MHz. The
// distance between the middles distinguishes the cases (802.11-2020, 9.4.2.158; the same in 6 GHz).
std::optional<Extent> extentOfTwo(Band band, int primary, int segment0, int segment1) {
  const int distance = std::abs(segment1 - segment0);
  auto half = extentAround(band, primary, Width::mhz80, segment0);
  if (!half) return std::nullopt;
  if (distance == 8) return extentAround(band, primary, Width::mhz160, segment1);
  if (distance <= 16 || !isWideChannel(band, lowestOf(Width::mhz80, segment1), 4)) {
    return std::nullopt;
  }
  half->width = Width::mhz80Plus80;
  half->secondCenter = segment1;
  return half;
}

}  // namespace

int twentyMHzChannelsOf(Width width) {
  switch (width) {
    case Width::mhz20:
      return 1;
    case Width::mhz40:
      return 2;
    case Width::mhz80:
    case Width::mhz80Plus80:  // each half
      return 4;
    case Width::mhz160:
      return 8;
    case Width::mhz320:
      return 16;
  }
  return 1;
}

int lowestOf(Width width, int center) { return center - 2 * (twentyMHzChannelsOf(width) - 1); }

std::optional<Extent> extentOfTwentyMHz(Band band, int primary) {
  return extentAround(band, primary, Width::mhz20, primary);
}

std::optional<Extent> extentOfSixGhz(const SixGhzOperation& operation) {
  const auto& [width, segment0, segment1] = operation.wide;
  constexpr Width kWidths[]{Width::mhz20, Width::mhz40, Width::mhz80};
  if (width < 3) {
    return extentAround(Band::ghz6, operation.primary, kWidths[width], segment0);
  }
  return extentOfTwo(Band::ghz6, operation.primary, segment0, segment1);
}

// 802.11be: from 160 MHz on, the first middle is that of the primary half, the second that of the
// whole width.
std::optional<Extent> extentOfEht(Band band, int primary, const WideOperation& wide,
                                  std::uint16_t disabled) {
  const auto& [code, segment0, segment1] = wide;
  constexpr Width kWidths[]{Width::mhz20, Width::mhz40, Width::mhz80, Width::mhz160, Width::mhz320};
  const Width width = kWidths[code];
  if (code >= 3 && !extentAround(band, primary, kWidths[code - 1], segment0)) return std::nullopt;
  auto extent = extentAround(band, primary, width, code >= 3 ? segment1 : segment0);
  if (!extent || disabled == 0) return extent;
  const int count = twentyMHzChannelsOf(width);
  const int ofPrimary = (primary - lowestOf(width, extent->center)) / 4;
  // Widths below 80 MHz are never punctured.
  if (count < 4 || unsigned{disabled} >> static_cast<unsigned>(count) != 0 ||
      (unsigned{disabled} >> static_cast<unsigned>(ofPrimary) & 1U) != 0) {
    return std::nullopt;
  }
  extent->punctured = disabled;
  return extent;
}

std::optional<Extent> extentOfHt(Band band, const HtOperation& ht) {
  if (ht.secondary == 0) return extentOfTwentyMHz(band, ht.primary);
  return extentAround(band, ht.primary, Width::mhz40, (ht.primary + ht.secondary) / 2);
}

// The extent with what VHT Operation adds to HT Operation (802.11-2020, 11.38.1).
std::optional<Extent> extentOfVht(Band band, const HtOperation& ht, const WideOperation& vht) {
  const auto narrow = extentOfHt(band, ht);
  if (vht.width == 0 || !narrow) return narrow;
  // A network that cannot use all its streams over its full width gives the second middle in HT
  // Operation.
  const int segment1 = vht.segment1 != 0 ? vht.segment1 : ht.segment2;
  std::optional<Extent> extent;
  if (vht.width == 1 && segment1 == 0) {
    extent = extentAround(band, ht.primary, Width::mhz80, vht.segment0);
  } else if (vht.width == 2) {
    extent = extentAround(band, ht.primary, Width::mhz160, vht.segment0);
  } else {
    extent = extentOfTwo(band, ht.primary, vht.segment0, segment1);
    if (vht.width == 3 && extent && extent->width != Width::mhz80Plus80) return std::nullopt;
  }
  if (extent && extent->secondary != narrow->secondary) return std::nullopt;
  return extent;
}

}  // namespace wifi_profile::ieee80211
