// Which access points a list of networks shows.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/AirFacts.h"

namespace wifi_profile {

struct ScanRow {
  const checks::AccessPoint* accessPoint;
  std::size_t accessPoints = 1;  // that have its name
  bool joined = false;           // the radio is, to one of them
};

// The strongest of each name, or all; strongest first, then by name and BSSID. Those without a name
// each stand for themselves. Looks into the scan, which must outlive the rows.
std::vector<ScanRow> scanRows(const checks::Scan& scan,
                              const std::optional<std::string>& joinedBssid, bool all);

// Such as "2.4 GHz"; empty: not known.
std::string_view bandText(const checks::AccessPoint& accessPoint);
// Of the primary channel, in MHz; 0: not known.
int frequencyOf(const checks::AccessPoint& accessPoint);
// MHz; 0: not known.
int widthOf(const checks::AccessPoint& accessPoint);
// The generation's number ("7", "6E", "6", "5", "4"), before there were numbers the letter ("g",
// "a", "b"); empty: not known.
std::string_view generationOf(const checks::AccessPoint& accessPoint);

}  // namespace wifi_profile
