#include "analysis/checks/Checks.h"

#include <algorithm>
#include <vector>

#include "analysis/checks/Rows.h"

namespace wifi_profile::checks {

std::span<const Check> allChecks() {
  static const std::vector<Check> kChecks = [] {
    std::vector<Check> checks;
    for (const auto rows :
         {reachChecks(), deviceChecks(), congestionChecks(), radioChecks(), scanChecks(),
          securityChecks(), identityChecks(), savedNetworkChecks()}) {
      checks.insert(checks.end(), rows.begin(), rows.end());
    }
    std::ranges::sort(checks, {}, &Check::id);
    return checks;
  }();
  return kChecks;
}

const Check& checkOf(DiagnosticsTestID id) {
  return *std::ranges::find(allChecks(), id, &Check::id);
}

}  // namespace wifi_profile::checks
