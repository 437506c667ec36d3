// A value received over D-Bus, of the type that its sender chose. Reading it as another type gives
// an empty value and never fails, so facts can be read without checking types first:
//
//   settings.at("ipv4").at("method").text()
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wifi_profile::linux::bus {

class BusValue {
 public:
  struct Bytes {  // ay
    std::string bytes;

    bool operator==(const Bytes&) const = default;
  };
  using List = std::vector<BusValue>;                        // arrays and structures
  using Map = std::map<std::string, BusValue, std::less<>>;  // arrays of entries
  using Content = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double,
                               std::string, Bytes, List, Map>;

  BusValue() = default;  // an empty value
  explicit BusValue(Content content) : content_(std::move(content)) {}
  explicit BusValue(Map map) : content_(std::move(map)) {}

  bool isNothing() const { return std::holds_alternative<std::monostate>(content_); }
  std::optional<bool> boolean() const;
  std::optional<std::int64_t> integer() const;  // signed or unsigned, if it fits
  std::optional<std::string> text() const;      // also of an object path
  std::optional<std::string> bytes() const;     // of an array of bytes
  // Empty if the value is not a list or a map.
  const List& list() const;
  const Map& map() const;
  // An empty value if the value is not a map or has no such key.
  const BusValue& at(std::string_view key) const;

  bool operator==(const BusValue&) const = default;

 private:
  Content content_;
};

}  // namespace wifi_profile::linux::bus
