// Finds the networks in range of a device.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "checks/AirFacts.h"
#include "host/CommandLine.h"
#include "host/Console.h"

namespace wifi_profile {

// The data for a table of networks.
struct NetworksInRange {
  checks::Scan scan;
  std::optional<std::string> joinedBssid;  // empty: not joined, or unknown
};

// Returns the scan of a scenario's world, or scans with this machine's radio.
std::variant<NetworksInRange, Failure> networksInRange(const ScanOptions& options);

}  // namespace wifi_profile
