// Scans by a connection manager.
#pragma once

#include <chrono>
#include <optional>

namespace wifi_profile::linux::bus {

enum class ScanStart {
  started,
  tooSoon,   // a scan is under way, or has just ended: its results are or will be there
  notReady,  // the radio is off, or was switched on a moment ago
};

// Time of a scan on CLOCK_BOOTTIME; empty: there was no scan yet.
using LastScan = std::optional<std::chrono::milliseconds>;

}  // namespace wifi_profile::linux::bus
