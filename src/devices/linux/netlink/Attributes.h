// Parses netlink attributes (linux/netlink.h): a length, a type, and the payload padded to a
// multiple of 4. Keeps references to the bytes, which must outlive the object. Accepts any bytes:
// an attribute that is cut off, or shorter than requested, counts as missing.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::linux::netlink {

using ieee80211::Bytes;

struct Attribute {
  int type = 0;  // without the two flag bits above it
  ieee80211::Bytes payload;
};

class Attributes {
 public:
  Attributes() = default;
  explicit Attributes(ieee80211::Bytes bytes);

  // In the order of the bytes. In nl80211's arrays the type is the index.
  auto begin() const { return all_.begin(); }
  auto end() const { return all_.end(); }

  // Returns the payload of this type, of the last attribute if there are several.
  std::optional<ieee80211::Bytes> find(int type) const;
  bool has(int type) const { return find(type).has_value(); }

  // Returns a number in host byte order. Empty if the payload is too short.
  template <class Number>
  std::optional<Number> number(int type) const {
    static_assert(std::is_integral_v<Number>);
    const auto payload = find(type);
    if (!payload || payload->size() < sizeof(Number)) return std::nullopt;
    Number number{};
    std::memcpy(&number, payload->data(), sizeof number);
    return number;
  }

  // Returns the payload up to the first zero octet.
  std::optional<std::string> text(int type) const;

  // Returns the attributes inside the attribute of this type; no attributes if it is missing.
  Attributes nested(int type) const;

 private:
  std::vector<Attribute> all_;
};

}  // namespace wifi_profile::linux::netlink
