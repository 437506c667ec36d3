// What an input of fuzz_elements looks like: capabilities and frequency, of two octets each with
// the low one first (a frequency of 0: not known), then the elements.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "ieee80211/AccessPointElements.h"

namespace wifi_profile::ieee80211 {

inline std::vector<std::uint8_t> fuzzInput(std::uint16_t capabilities, std::optional<int> frequency,
                                           Bytes elements) {
  std::vector<std::uint8_t> input;
  for (const int number : {int{capabilities}, frequency.value_or(0)}) {
    input.push_back(static_cast<std::uint8_t>(number & 0xFF));
    input.push_back(static_cast<std::uint8_t>(number >> 8));
  }
  input.insert(input.end(), elements.begin(), elements.end());
  return input;
}

inline std::optional<ReceivedFrame> frameOf(Bytes input) {
  ByteReader reader(input);
  ReceivedFrame frame;
  frame.capabilities = reader.number16();
  if (const int frequency = reader.number16(); frequency != 0) frame.frequency = frequency;
  if (reader.failed()) return std::nullopt;
  frame.elements = reader.left();
  return frame;
}

}  // namespace wifi_profile::ieee80211
