// Netlink attributes and messages made by hand (linux/netlink.h).
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "devices/linux/netlink/Attributes.h"
#include "ieee80211/Beacons.h"

namespace wifi_profile::machine {

using ieee80211::Octets;
using ieee80211::operator+;

// The octets of a number or of a struct of the kernel's, in the machine's order.
template <class Value>
Octets octetsOf(const Value& value) {
  Octets octets(sizeof value);
  std::memcpy(octets.data(), &value, sizeof value);
  return octets;
}

inline Octets attribute(int type, const Octets& payload) {
  const std::size_t length = 4 + payload.size();
  Octets bytes = octetsOf(static_cast<std::uint16_t>(length)) +
                 octetsOf(static_cast<std::uint16_t>(type)) + payload;
  bytes.resize((length + 3) / 4 * 4);
  return bytes;
}

inline Octets attribute(int type, std::string_view text) {
  return attribute(type, ieee80211::bytesOf(text) + Octets{0});
}

template <class Number>
Octets numberAttribute(int type, Number number) {
  return attribute(type, octetsOf(number));
}

}  // namespace wifi_profile::machine
