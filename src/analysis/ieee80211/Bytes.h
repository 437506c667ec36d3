// Reads fields from bytes that may end anywhere.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace wifi_profile::ieee80211 {

using Bytes = std::span<const std::uint8_t>;

inline bool areEqual(Bytes one, Bytes other) { return std::ranges::equal(one, other); }

inline std::string toText(Bytes bytes) { return {bytes.begin(), bytes.end()}; }

// Takes fields from the front. An incomplete field reads as zero or as no bytes, and so does every
// field after it. A parser checks `failed` once, after the last field.
class ByteReader {
 public:
  explicit ByteReader(Bytes bytes) : left_(bytes) {}

  bool failed() const { return failed_; }
  bool atEnd() const { return left_.empty(); }
  Bytes left() const { return left_; }

  Bytes take(std::size_t count) {
    if (count > left_.size()) {
      failed_ = true;
      left_ = {};
      return {};
    }
    const Bytes taken = left_.first(count);
    left_ = left_.subspan(count);
    return taken;
  }

  std::uint8_t octet() {
    const Bytes taken = take(1);
    return taken.empty() ? std::uint8_t{0} : taken[0];
  }

  // Two octets, low octet first: the order of all numbers in 802.11 (802.11-2020, 9.2.2).
  std::uint16_t number16() {
    const Bytes taken = take(2);
    return taken.empty() ? std::uint16_t{0} : static_cast<std::uint16_t>(taken[0] | taken[1] << 8U);
  }

  // Two octets, high octet first: the order of WPS.
  std::uint16_t bigEndian16() {
    const Bytes taken = take(2);
    return taken.empty() ? std::uint16_t{0} : static_cast<std::uint16_t>(taken[0] << 8U | taken[1]);
  }

  // An organisation: three octets, the first one the highest (802.11-2020, 9.4.1.31).
  std::uint32_t oui() {
    const Bytes taken = take(3);
    if (taken.empty()) return 0;
    return std::uint32_t{taken[0]} << 16U | std::uint32_t{taken[1]} << 8U | taken[2];
  }

 private:
  Bytes left_;
  bool failed_ = false;
};

}  // namespace wifi_profile::ieee80211
