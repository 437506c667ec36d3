// Finds the networks in range of a device.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "analysis/facts/AirFacts.h"
#include "app/cli/CommandLine.h"
#include "app/cli/Console.h"

namespace wifi_profile::cli {

// The data for a table of networks.
struct NetworksInRange {
  facts::Scan scan;
  std::optional<std::string> joinedBssid;  // empty: not joined, or unknown
};

// Returns the scan of a scenario's world, or scans with this machine's radio.
std::variant<NetworksInRange, Failure> networksInRange(const ScanOptions& options);

}  // namespace wifi_profile::cli
