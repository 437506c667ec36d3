// Names of any bytes, compared without the case of ASCII letters. Pure functions; any thread.
#pragma once

#include <string>
#include <string_view>

namespace wifi_profile::checks {

// Only ASCII letters have a case here.
std::string lowerCased(std::string_view text);

// Without the zeros at its end, with which makers fill up fields of fixed length.
std::string withoutZeros(std::string_view text);

// Whether all of `name` is as `pattern` says, in which '*' stands for any bytes, or none. Cases do
// not count. At most the product of both lengths in time.
bool matchesPattern(std::string_view name, std::string_view pattern);

}  // namespace wifi_profile::checks
