// Reads JSON into values.
#pragma once

#include <cstddef>
#include <string_view>

#include "diagnostic/platform/Object.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::runtime {

// Deeper nesting is an error, because code that reads the values recurses as deep as they are
// nested.
inline constexpr std::size_t kDeepestJson = 64;

// Reads one JSON value (RFC 8259, UTF-8). true and false become boolean numbers. A number without
// point and exponent becomes a signed integer, or an unsigned one if it is too large for that; any
// other number becomes a double. null becomes the null placeholder. Errors other than bad syntax:
// an integer of more than 64 bits, a double that overflows, a key that occurs twice in one object,
// nesting deeper than `kDeepestJson`. The subject of an error is "NAME:LINE:COLUMN", counted from
// 1, columns in bytes; without a name, "LINE:COLUMN".
Result<ObjectRef> readJson(std::string_view text, std::string_view name = {});

}  // namespace wifi_profile::runtime
