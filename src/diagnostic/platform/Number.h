// Numbers as values that keep their kind.
#pragma once

#include <cstdint>
#include <variant>

#include "diagnostic/platform/Object.h"

namespace wifi_profile {

// An immutable number: boolean, signed integer, unsigned integer or double. The kind is part of
// the value: a boolean 1, a signed 1, an unsigned 1 and a double 1.0 are four different numbers.
class Number final : public Object {
 public:
  using Value = std::variant<bool, std::int64_t, std::uint64_t, double>;

  explicit Number(Value value) : value_(value) {}

  static std::shared_ptr<const Number> withBool(bool value) { return make(value); }
  static std::shared_ptr<const Number> withInteger(std::int64_t value) { return make(value); }
  static std::shared_ptr<const Number> withUnsigned(std::uint64_t value) { return make(value); }
  static std::shared_ptr<const Number> withDouble(double value) { return make(value); }

  const Value& value() const { return value_; }
  bool isBoolean() const { return std::holds_alternative<bool>(value_); }
  bool isInteger() const { return !isBoolean() && !isDouble(); }
  bool isDouble() const { return std::holds_alternative<double>(value_); }

  // Returns the nearest double; 0 or 1 for a boolean.
  double toDouble() const {
    return std::visit([](auto value) { return static_cast<double>(value); }, value_);
  }

  bool operator==(const Number& other) const { return value_ == other.value_; }

 private:
  static std::shared_ptr<const Number> make(Value value) {
    return std::make_shared<const Number>(value);
  }

  const Value value_;
};

using NumberRef = std::shared_ptr<const Number>;

}  // namespace wifi_profile
