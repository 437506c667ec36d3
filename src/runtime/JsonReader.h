// Reads JSON into values.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "diagnostic/platform/Object.h"

namespace wifi_profile::runtime {

// Why a text is not valid, and where.
struct JsonFault {
  std::size_t line;      // from 1
  std::size_t column;    // in bytes, from 1
  std::string found;     // what is there
  std::string expected;  // what should be there
};

// Deeper nesting is a fault, because code that reads the values recurses as deep as they are
// nested.
inline constexpr std::size_t kDeepestJson = 64;

// Reads one JSON value (RFC 8259, UTF-8). true and false become boolean numbers. A number without
// point and exponent becomes a signed integer, or an unsigned one if it is too large for that; any
// other number becomes a double. null becomes the null placeholder. Faults other than bad syntax:
// an integer of more than 64 bits, a double that overflows, a key that occurs twice in one object,
// nesting deeper than `kDeepestJson`.
std::variant<ObjectRef, JsonFault> readJson(std::string_view text);

}  // namespace wifi_profile::runtime
