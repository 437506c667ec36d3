#include "analysis/ieee80211/OperationElements.h"

namespace wifi_profile::ieee80211 {
namespace {

WideOperation takeWide(ByteReader& reader, int width) {
  WideOperation wide{.width = width, .segment0 = 0, .segment1 = 0};
  wide.segment0 = reader.octet();
  wide.segment1 = reader.octet();
  return wide;
}

}  // namespace

std::optional<HtOperation> parseHtOperation(Bytes payload) {
  // Bits of the HT Operation Information.
  constexpr unsigned kOffsetMask = 3;  // 0 none, 1 above, 3 below
  constexpr unsigned kAnyWidth = 4;    // STA Channel Width
  ByteReader reader(payload);
  HtOperation operation;
  operation.primary = reader.octet();
  const unsigned first = reader.octet();
  const unsigned next = reader.number16();
  reader.take(2 + 16);  // the rest of the information, and the basic HT-MCS set
  const unsigned offset = first & kOffsetMask;
  if (reader.failed() || offset == 2 || operation.primary == 0) return std::nullopt;
  // If stations may not send wider than 20 MHz, the secondary channel is not in use.
  if ((first & kAnyWidth) != 0 && offset != 0) {
    operation.secondary = operation.primary + (offset == 1 ? 4 : -4);
  }
  operation.segment2 = static_cast<int>(next >> 5U & 0xFFU);  // bits 13 to 20 of the information
  return operation;
}

std::optional<WideOperation> parseVhtOperation(Bytes payload) {
  ByteReader reader(payload);
  const int width = reader.octet();
  const WideOperation wide = takeWide(reader, width);
  reader.take(2);  // basic VHT-MCS and NSS set
  if (reader.failed() || width > 3) return std::nullopt;
  return wide;
}

std::optional<HeOperation> parseHeOperation(Bytes payload) {
  // Bits of the 24-bit HE Operation Parameters.
  constexpr unsigned kHasVht = 1U << 14U;
  constexpr unsigned kIsCoHosted = 1U << 15U;
  constexpr unsigned kHasSixGhz = 1U << 17U;
  ByteReader reader(payload);
  const unsigned low = reader.number16();
  const unsigned parameters = low | static_cast<unsigned>(reader.octet()) << 16U;
  reader.take(1 + 2);  // BSS color, basic HE-MCS and NSS set
  HeOperation operation;
  if ((parameters & kHasVht) != 0) {
    const int width = reader.octet();
    operation.vht = takeWide(reader, width);
    if (width > 3) return std::nullopt;
  }
  if ((parameters & kIsCoHosted) != 0) reader.take(1);  // the largest BSSID indicator
  if ((parameters & kHasSixGhz) != 0) {
    SixGhzOperation sixGhz;
    sixGhz.primary = reader.octet();
    const int width = reader.octet() & 3;  // of the control field
    sixGhz.wide = takeWide(reader, width);
    reader.take(1);  // the lowest rate
    if (sixGhz.primary == 0) return std::nullopt;
    operation.sixGhz = sixGhz;
  }
  if (reader.failed()) return std::nullopt;
  return operation;
}

std::optional<EhtOperation> parseEhtOperation(Bytes payload) {
  // Bits of the EHT Operation Parameters.
  constexpr unsigned kHasInformation = 1;
  constexpr unsigned kHasDisabled = 2;
  ByteReader reader(payload);
  const unsigned parameters = reader.octet();
  reader.take(4);  // basic EHT-MCS and NSS set
  EhtOperation operation;
  if ((parameters & kHasInformation) != 0) {
    const int width = reader.octet() & 7;  // of the control field
    operation.wide = takeWide(reader, width);
    if (width > 4) return std::nullopt;
    if ((parameters & kHasDisabled) != 0) operation.disabled = reader.number16();
  }
  if (reader.failed()) return std::nullopt;
  return operation;
}

}  // namespace wifi_profile::ieee80211
