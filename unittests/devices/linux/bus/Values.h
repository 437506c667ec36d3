// Values as they would have come over the bus.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>

#include "devices/linux/bus/BusValue.h"

namespace wifi_profile::linux::bus {

inline BusValue text(std::string value) { return BusValue(std::move(value)); }
inline BusValue flag(bool value) { return BusValue(value); }
inline BusValue number(std::int64_t value) { return BusValue(value); }
inline BusValue bytes(std::string value) { return BusValue(BusValue::Bytes{std::move(value)}); }
inline BusValue list(BusValue::List values) { return BusValue(std::move(values)); }
inline BusValue map(BusValue::Map entries) { return BusValue(std::move(entries)); }

}  // namespace wifi_profile::linux::bus
