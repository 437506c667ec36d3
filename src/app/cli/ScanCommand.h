// The command `wifi-profile scan`: the networks in range, as a table or as JSON.
#pragma once

#include <optional>
#include <string>

#include "analysis/facts/AirFacts.h"
#include "app/cli/CommandLine.h"

namespace wifi_profile::cli {

// The data for a table of networks.
struct NetworksInRange {
  facts::Scan scan;
  std::optional<std::string> joinedBssid;  // empty: not joined, or unknown
};

struct ScanStyle {
  bool all = false;    // every access point, not only the strongest of each name
  bool color = false;  // with ANSI sequences
};

// Returns the table, strongest first. Each access point with a hidden name has a row of its own.
std::string scanText(const NetworksInRange& networks, const ScanStyle& style);

// Returns the same rows in the same order, as a JSON array on one line.
std::string scanJson(const NetworksInRange& networks, bool all);

// Scans and prints. Returns the exit status.
int scanCommand(const ScanOptions& options);

}  // namespace wifi_profile::cli
