// The end of a process whose program breaks a rule of an interface.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace wifi_profile {

// Prints what is wrong to standard error and aborts.
[[noreturn]] inline void programmingError(const std::string& what) {
  std::fprintf(stderr, "wifi-profile: %s\n", what.c_str());
  std::abort();
}

}  // namespace wifi_profile
