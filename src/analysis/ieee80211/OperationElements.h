// The channel fields of the operation elements, not yet compared with each other. Parsers take the
// payload (after the extension id). They return empty if it is too short, has a reserved value or
// names channel 0. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// HT Operation (IEEE 802.11-2020, 9.4.2.56).
struct HtOperation {
  int primary = 0;    // channel number
  int secondary = 0;  // channel number; 0: none, the network is 20 MHz wide
  int segment2 = 0;   // middle of a part that VHT Operation could not name, or 0
};

std::optional<HtOperation> parseHtOperation(Bytes payload);

// A width as its element encodes it, and up to two middles as channel numbers (0: none).
struct WideOperation {
  int width = 0;
  int segment0 = 0;
  int segment1 = 0;

  bool operator==(const WideOperation&) const = default;
};

// VHT Operation (802.11-2020, 9.4.2.158). `width`: 0 is 20 or 40 MHz; 1 is 80 MHz or more; 2 (160
// MHz) and 3 (80+80 MHz) are deprecated.
std::optional<WideOperation> parseVhtOperation(Bytes payload);

// 6 GHz Operation Information (802.11ax, 9.4.2.249). `width`: 0 to 3 are 20, 40, 80, and 160 or
// 80+80 MHz.
struct SixGhzOperation {
  int primary = 0;  // channel number
  WideOperation wide;
};

// HE Operation (802.11ax, 9.4.2.249). Parts that are absent are empty.
struct HeOperation {
  std::optional<WideOperation> vht;  // encoded as in VHT Operation
  std::optional<SixGhzOperation> sixGhz;
};

std::optional<HeOperation> parseHeOperation(Bytes payload);

// EHT Operation (802.11be). `wide` is empty if the element does not give the width.
struct EhtOperation {
  std::optional<WideOperation> wide;  // `width`: 0 to 4 are 20, 40, 80, 160 and 320 MHz
  std::uint16_t disabled = 0;         // Disabled Subchannel Bitmap, bit 0 is the lowest 20 MHz
};

std::optional<EhtOperation> parseEhtOperation(Bytes payload);

}  // namespace wifi_profile::ieee80211
