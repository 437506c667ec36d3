// The networks in range, as a table or for programs.
#pragma once

#include <string>

#include "host/CommandLine.h"
#include "host/NetworksInRange.h"

namespace wifi_profile {

struct ScanStyle {
  bool all = false;    // every access point, not only the strongest of a name
  bool color = false;  // with ANSI sequences
};

// Strongest first. Access points that never told their name are rows of their own.
std::string scanText(const NetworksInRange& networks, const ScanStyle& style);

// A JSON array on one line, of the same rows in the same order.
std::string scanJson(const NetworksInRange& networks, bool all);

// Scans, prints and returns the exit status.
int scanCommand(const ScanOptions& options);

}  // namespace wifi_profile
