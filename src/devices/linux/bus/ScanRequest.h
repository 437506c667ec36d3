// Scans that a connection manager makes.
#pragma once

#include <chrono>
#include <optional>

namespace wifi_profile::machine {

enum class ScanStart {
  started,
  tooSoon,   // one is under way or has just been: its results are there, or will be
  notReady,  // the radio is off, or was switched on a moment ago
};

// Time since the system started, on CLOCK_BOOTTIME; nothing: there was no scan yet.
using LastScan = std::optional<std::chrono::milliseconds>;

}  // namespace wifi_profile::machine
