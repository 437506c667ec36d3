// Writes values as JSON.
#pragma once

#include <string>
#include <string_view>

#include "diagnostic/platform/Object.h"

namespace wifi_profile::runtime {

// Returns `value` on one line, without blanks, with keys in bytewise order. Each kind of number has
// a distinct form: true and false; integers; doubles, which have a point or an exponent and the
// fewest digits that read back the same value (plain from 0.0001 up to 1e16, otherwise with an
// exponent). NaN and the infinities become the strings "NaN", "Infinity" and "-Infinity"; the null
// placeholder and nil become null. Texts are valid UTF-8 (bad bytes as `\xNN`) without any code
// point that a terminal would act on. A record of the service has no JSON form and becomes null.
std::string jsonText(const ObjectRef& value);

// Returns a text as a JSON string, including the quotes.
std::string jsonString(std::string_view text);

}  // namespace wifi_profile::runtime
