#include "diagnostic/controller/RunPlan.h"

#include "diagnostic/controller/StatusCodes.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {
namespace {

constexpr std::int32_t kDeviceTests = kDeviceConfigurationBatch.size();
constexpr std::int32_t kCurrentNetworkTests = kCurrentNetworkBatch.size();
constexpr std::int32_t kSelectedNetworkTests = kSelectedNetworkBatch.size();

}  // namespace

RunPlan planRun(const TextRef& currentName, const TextRef& selectedName) {
  const bool currentNoMap = isExcludedFromRuns(currentName);
  const bool selectedNoMap = isExcludedFromRuns(selectedName);
  const bool runCurrent = currentName && !currentNoMap;
  const bool runSelected = selectedName && !selectedNoMap && !equalNames(selectedName, currentName);
  return {
      .runCurrentNetwork = runCurrent,
      .runSelectedNetwork = runSelected,
      .totalTests = kDeviceTests + (runCurrent ? kCurrentNetworkTests : 0) +
                    (runSelected ? kSelectedNetworkTests : 0),
      .statusCode = selectedNoMap  ? kStatusSelectedNetworkExcluded
                    : currentNoMap ? kStatusCurrentNetworkExcluded
                                   : kStatusCompleted,
      .currentName = currentName,
      .selectedName = selectedName,
  };
}

}  // namespace wifi_profile
