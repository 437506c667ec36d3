// JSON as values.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "platform/Object.h"

namespace wifi_profile {

// Why a text could not be read, and where.
struct JsonFault {
  std::size_t line;      // from 1
  std::size_t column;    // in bytes, from 1
  std::string found;     // what stood there
  std::string expected;  // what should have
};

// Nesting beyond this is a fault: what reads values goes down as deep as they do.
inline constexpr std::size_t kDeepestJson = 64;

// Reads one JSON value (RFC 8259, UTF-8). true and false become boolean numbers; a number whose
// text has neither point nor exponent becomes a signed integer, or an unsigned one where it is too
// large for that; any other becomes a double; null becomes the null placeholder. Faults beside bad
// syntax: an integer of more than 64 bits, a double that overflows, a key that stands twice in one
// object, nesting deeper than `kDeepestJson`.
std::variant<ObjectRef, JsonFault> readJson(std::string_view text);

}  // namespace wifi_profile
