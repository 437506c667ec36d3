// Netlink attributes and messages made by hand (linux/netlink.h).
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "analysis/ieee80211/Beacons.h"
#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::linux::netlink {

using ieee80211::Octets;
using ieee80211::operator+;

// The octets of a number or of a struct of the kernel's, in the machine's order.
template <class Value>
ieee80211::Octets octetsOf(const Value& value) {
  ieee80211::Octets octets(sizeof value);
  std::memcpy(octets.data(), &value, sizeof value);
  return octets;
}

inline ieee80211::Octets attribute(int type, const ieee80211::Octets& payload) {
  const std::size_t length = 4 + payload.size();
  ieee80211::Octets bytes = octetsOf(static_cast<std::uint16_t>(length)) +
                            octetsOf(static_cast<std::uint16_t>(type)) + payload;
  bytes.resize((length + 3) / 4 * 4);
  return bytes;
}

inline ieee80211::Octets attribute(int type, std::string_view text) {
  return attribute(type, ieee80211::bytesOf(text) + ieee80211::Octets{0});
}

template <class Number>
ieee80211::Octets numberAttribute(int type, Number number) {
  return attribute(type, octetsOf(number));
}

}  // namespace wifi_profile::linux::netlink
