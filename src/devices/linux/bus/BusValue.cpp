#include "devices/linux/bus/BusValue.h"

#include <limits>

namespace wifi_profile::linux::bus {

namespace {

const BusValue kNothing;
const BusValue::List kNoList;
const BusValue::Map kNoMap;

}  // namespace

std::optional<bool> BusValue::boolean() const {
  const bool* const value = std::get_if<bool>(&content_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::int64_t> BusValue::integer() const {
  if (const auto* const number = std::get_if<std::int64_t>(&content_)) return *number;
  const auto* const number = std::get_if<std::uint64_t>(&content_);
  constexpr auto kLargest = std::uint64_t{std::numeric_limits<std::int64_t>::max()};
  if (!number || *number > kLargest) return std::nullopt;
  return static_cast<std::int64_t>(*number);
}

std::optional<std::string> BusValue::text() const {
  const auto* const value = std::get_if<std::string>(&content_);
  return value ? std::optional(*value) : std::nullopt;
}

std::optional<std::string> BusValue::bytes() const {
  const auto* const value = std::get_if<Bytes>(&content_);
  return value ? std::optional(value->bytes) : std::nullopt;
}

const BusValue::List& BusValue::list() const {
  const auto* const value = std::get_if<List>(&content_);
  return value ? *value : kNoList;
}

const BusValue::Map& BusValue::map() const {
  const auto* const value = std::get_if<Map>(&content_);
  return value ? *value : kNoMap;
}

const BusValue& BusValue::at(std::string_view key) const {
  const Map& entries = map();
  const auto found = entries.find(key);
  return found == entries.end() ? kNothing : found->second;
}

}  // namespace wifi_profile::linux::bus
