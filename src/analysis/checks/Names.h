// Names of arbitrary bytes, compared without regard to the case of ASCII letters. Pure functions;
// any thread.
#pragma once

#include <string>
#include <string_view>

namespace wifi_profile::checks {

// Converts ASCII letters only.
std::string lowerCased(std::string_view text);

// Removes the zeros at the end, with which makers fill fields of fixed length.
std::string withoutZeros(std::string_view text);

// True if the whole of `name` matches `pattern`, in which '*' stands for any number of bytes.
// Ignores case. The time is at most proportional to the product of both lengths.
bool matchesPattern(std::string_view name, std::string_view pattern);

}  // namespace wifi_profile::checks
