// The clock of the kernel's and the connection managers' scan times.
#pragma once

#include <chrono>
#include <ctime>

namespace wifi_profile::linux {

// Returns the current time of CLOCK_BOOTTIME.
inline std::chrono::nanoseconds sinceBoot() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

}  // namespace wifi_profile::linux
