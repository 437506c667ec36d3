// Values as JSON.
#pragma once

#include <string>
#include <string_view>

#include "platform/Object.h"

namespace wifi_profile {

// `value` on one line, without blanks, keys in bytewise order. Each kind of number has its own
// look: true and false; integers; doubles, which show a point or an exponent and the fewest digits
// that read back the same (plain from 0.0001 up to 1e16, else with an exponent). NaN and the
// infinities are the strings "NaN", "Infinity" and "-Infinity"; the null placeholder and nil are
// null. Texts are valid UTF-8 (bad bytes as `\xNN`) and hold no code point that a terminal would
// act on. A record of the service has no JSON form and is written as the null placeholder is.
std::string jsonText(const ObjectRef& value);

// A text as a JSON string, quotes included.
std::string jsonString(std::string_view text);

}  // namespace wifi_profile
