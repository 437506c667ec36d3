#include "runtime/JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "runtime/SafeText.h"

namespace wifi_profile::runtime {
namespace {

template <class... Arguments>
std::string digitsOf(Arguments... arguments) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), arguments...).ptr;
  return {text.data(), end};
}

std::string textOf(bool boolean) { return boolean ? "true" : "false"; }
std::string textOf(std::int64_t integer) { return digitsOf(integer); }
std::string textOf(std::uint64_t integer) { return digitsOf(integer); }
std::string textOf(double number) {
  if (std::isnan(number)) return "\"NaN\"";
  if (std::isinf(number)) return number < 0 ? "\"-Infinity\"" : "\"Infinity\"";
  // Both forms have the fewest digits that read back the same; the plain one is easier to read for
  // usual sizes.
  constexpr double kSmallestPlain = 1e-4;
  constexpr double kFirstTooLarge = 1e16;
  const double size = std::abs(number);
  if (size != 0 && (size < kSmallestPlain || size >= kFirstTooLarge)) {
    return digitsOf(number, std::chars_format::scientific);
  }
  std::string text = digitsOf(number, std::chars_format::fixed);
  if (text.find('.') == std::string::npos) text += ".0";
  return text;
}

// Code points above U+FFFF need two of JSON's escapes.
void appendEscaped(std::string& out, char32_t point) {
  std::array<char, 16> text{};
  if (point > 0xFFFF) {
    const char32_t rest = point - 0x10000;
    std::snprintf(text.data(), text.size(), "\\u%04x\\u%04x",
                  static_cast<unsigned>(0xD800 + (rest >> 10U)),
                  static_cast<unsigned>(0xDC00 + (rest & 0x3FFU)));
  } else {
    std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(point));
  }
  out += text.data();
}

void append(std::string& out, const ObjectRef& value) {
  if (const auto text = as<Text>(value)) {
    out += jsonString(text->string());
  } else if (const auto number = as<Number>(value)) {
    out += std::visit([](auto held) { return textOf(held); }, number->value());
  } else if (const auto array = as<Array>(value)) {
    out += '[';
    for (const char* separator = ""; const auto& element : array->elements()) {
      out += separator;
      append(out, element);
      separator = ",";
    }
    out += ']';
  } else if (const auto dictionary = as<Dictionary>(value)) {
    out += '{';
    for (const char* separator = ""; const auto& [key, entry] : dictionary->entries()) {
      out += separator;
      out += jsonString(key);
      out += ':';
      append(out, entry);
      separator = ",";
    }
    out += '}';
  } else {
    out += "null";
  }
}

}  // namespace

std::string jsonText(const ObjectRef& value) {
  std::string out;
  append(out, value);
  return out;
}

std::string jsonString(std::string_view text) {
  const std::string valid = validUtf8(text);
  std::string out = "\"";
  for (std::string_view rest = valid; !rest.empty();) {
    const CodePoint point = firstCodePoint(rest);
    if (point.value == U'"' || point.value == U'\\') {
      out += '\\';
      out += static_cast<char>(point.value);
    } else if (isUnsafeToShow(point.value)) {
      appendEscaped(out, point.value);
    } else {
      out += rest.substr(0, point.length);
    }
    rest.remove_prefix(point.length);
  }
  return out + '"';
}

}  // namespace wifi_profile::runtime
