#include "diagnostic/controller/WiFiProfileInputs.h"

#include "diagnostic/platform/DiagnosticsSupport.h"

namespace wifi_profile {
namespace {

constexpr std::uint64_t kShortestScanCacheAge = 0;
constexpr std::uint64_t kLongestScanCacheAge = 600;
constexpr std::size_t kLongestNetworkName = 32;

}  // namespace

bool WiFiProfileInputs::validateAndInitializeParameters(const DictionaryRef& parameters) {
  bool failed = false;
  setParameters(parameters);
  setMaxScanCacheAge(hs_numberFromRequiredKey(parameters, "maxScanCacheAge",
                                              Number::withUnsigned(kShortestScanCacheAge),
                                              Number::withUnsigned(kLongestScanCacheAge), failed));
  setReprofileWithNetworksListUI(hs_boolFromRequiredKey(parameters, "reprofileWithUI", failed));
  setSelectedNetworkName(
      hs_stringFromKey(parameters, "networkName", kLongestNetworkName, nullptr, failed));
  areValid_.set(!failed);
  return !failed;
}

}  // namespace wifi_profile
