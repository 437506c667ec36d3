// Selects the access points that a list of networks shows.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/facts/AirFacts.h"

namespace wifi_profile::cli {

struct ScanRow {
  const facts::AccessPoint* accessPoint;
  std::size_t accessPoints = 1;  // with the same name
  bool joined = false;           // the radio is joined to one of them
};

// Returns the strongest access point of each name, or all access points; strongest first, then by
// name and BSSID. Each access point without a name has its own row. The rows point into `scan`,
// which must outlive them.
std::vector<ScanRow> scanRows(const facts::Scan& scan,
                              const std::optional<std::string>& joinedBssid, bool all);

// Returns the band, such as "2.4 GHz"; empty: unknown.
std::string_view bandText(const facts::AccessPoint& accessPoint);
// Returns the frequency of the primary channel, in MHz; 0: unknown.
int frequencyOf(const facts::AccessPoint& accessPoint);
// Returns the channel width in MHz; 0: unknown.
int widthOf(const facts::AccessPoint& accessPoint);
// Returns the generation's number ("7", "6E", "6", "5", "4") or, for older standards, the letter
// ("g", "a", "b"); empty: unknown.
std::string_view generationOf(const facts::AccessPoint& accessPoint);

}  // namespace wifi_profile::cli
