// The networks that a device has in range.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "checks/AirFacts.h"
#include "host/CommandLine.h"
#include "host/Console.h"

namespace wifi_profile {

// What a table of networks is made from.
struct NetworksInRange {
  checks::Scan scan;
  std::optional<std::string> joinedBssid;  // nothing: not joined, or not known
};

// The scan of a scenario's world, or of this machine's radio.
std::variant<NetworksInRange, Failure> networksInRange(const ScanOptions& options);

}  // namespace wifi_profile
