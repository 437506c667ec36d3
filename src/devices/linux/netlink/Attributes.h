// Netlink attributes out of bytes (linux/netlink.h): a length, a type, and the payload up to a
// multiple of 4. Looks into the bytes, which must outlive it. Any bytes will do: what is cut off
// or shorter than asked for is not there.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "ieee80211/Bytes.h"

namespace wifi_profile::machine {

using ieee80211::Bytes;

struct Attribute {
  int type = 0;  // without the two flags above it
  Bytes payload;
};

class Attributes {
 public:
  Attributes() = default;
  explicit Attributes(Bytes bytes);

  // In their order. In nl80211's arrays the type is the index.
  auto begin() const { return all_.begin(); }
  auto end() const { return all_.end(); }

  // The payload; where a type comes more than once, of the last one.
  std::optional<Bytes> find(int type) const;
  bool has(int type) const { return find(type).has_value(); }

  // In the machine's order of octets. Nothing when it is too short.
  template <class Number>
  std::optional<Number> number(int type) const {
    static_assert(std::is_integral_v<Number>);
    const auto payload = find(type);
    if (!payload || payload->size() < sizeof(Number)) return std::nullopt;
    Number number{};
    std::memcpy(&number, payload->data(), sizeof number);
    return number;
  }

  // Up to the first zero octet.
  std::optional<std::string> text(int type) const;

  // The attributes inside of one; none where it is not there.
  Attributes nested(int type) const;

 private:
  std::vector<Attribute> all_;
};

}  // namespace wifi_profile::machine
