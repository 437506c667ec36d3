// What the fuzz targets have in common.
#pragma once

#include <cstdio>
#include <cstdlib>

// Ends the process where a rule of the product does not hold.
inline void require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", rule);
  std::abort();
}

// libcurl 7.88 forgets three bytes of an address that it refuses.
extern "C" __attribute__((used)) inline const char* __lsan_default_suppressions() {  // NOLINT
  return "leak:libcurl.so";
}
