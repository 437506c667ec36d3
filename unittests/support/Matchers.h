// What a value is, kind and all.
#pragma once

#include <cmath>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "runtime/JsonWriter.h"

namespace wifi_profile {

// A value with its kind, for the messages of failed checks.
inline std::string described(const ObjectRef& value) {
  if (!value) return "nil";
  if (isNullPlaceholder(value)) return "the null placeholder";
  if (const auto number = as<Number>(value)) {
    constexpr const char* kKinds[] = {"boolean ", "signed ", "unsigned ", "double "};
    return kKinds[number->value().index()] + runtime::jsonText(value);
  }
  return runtime::jsonText(value);
}

template <class T>
bool holdsNumber(const ObjectRef& value, T expected) {
  const auto number = as<Number>(value);
  if (!number || !std::holds_alternative<T>(number->value())) return false;
  return std::get<T>(number->value()) == expected;
}

MATCHER_P(isBoolean, expected, expected ? "is boolean YES" : "is boolean NO") {
  *result_listener << described(arg);
  return holdsNumber<bool>(arg, expected);
}
MATCHER_P(isInteger, expected, "is the signed integer " + std::to_string(expected)) {
  *result_listener << described(arg);
  return holdsNumber(arg, static_cast<std::int64_t>(expected));
}
MATCHER_P(isUnsigned, expected, "is the unsigned integer " + std::to_string(expected)) {
  *result_listener << described(arg);
  return holdsNumber(arg, static_cast<std::uint64_t>(expected));
}
MATCHER_P(isDouble, expected, "is the double " + std::to_string(expected)) {
  *result_listener << described(arg);
  return holdsNumber<double>(arg, expected);
}
MATCHER(isNaN, "is the double NaN") {
  *result_listener << described(arg);
  const auto number = as<Number>(arg);
  return number && number->isDouble() && std::isnan(number->toDouble());
}
MATCHER_P(isText, expected, std::string("is the text \"") + expected + "\"") {
  *result_listener << described(arg);
  const auto text = as<Text>(arg);
  return text && text->string() == expected;
}
MATCHER(isNull, "is the null placeholder") {
  *result_listener << described(arg);
  return isNullPlaceholder(arg);
}
MATCHER(isNil, "is nil") {
  *result_listener << described(arg);
  return arg == nullptr;
}
MATCHER_P(isTheVery, object, "is the very object " + described(object)) {
  *result_listener << described(arg);
  return arg == object;
}

// In bytewise order.
inline std::vector<std::string> keysOf(const DictionaryRef& dictionary) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : dictionary->entries()) keys.push_back(key);
  return keys;
}

}  // namespace wifi_profile
