#include "app/cli/EmptyList.h"

#include <algorithm>
#include <utility>

#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile::cli {
namespace {

bool hasName(const ObjectRef& object) {
  const auto result = as<VqWiFiScanResult>(object);
  return result && result->ssidString();
}

}  // namespace

app::EmptyList emptyListOf(const WiFiProfileViewController& controller,
                           const std::optional<TestOutcome>& scan, std::string powerOnFailure) {
  using Why = app::EmptyList::Why;
  const auto because = [](Why why, std::string reason = {}) {
    return app::EmptyList{.why = why, .reason = std::move(reason), .askForPower = nullptr};
  };
  if (!controller.manager()) return because(Why::notKnownYet);
  if (!controller.wifiPoweredOn()) {
    return powerOnFailure.empty() ? because(Why::radioOff)
                                  : because(Why::powerOnFailed, std::move(powerOnFailure));
  }
  if (!scan) return because(Why::notKnownYet);
  if (!scan->verdict) return because(Why::scanFailed, scan->verdict.error().message);
  if (!scan->passed || !scan->hasDetails) return because(Why::scanFailed);
  const ArrayRef results = controller.wifiScanResults();
  if (!results || results->elements().empty()) return because(Why::noneInRange);
  const bool named = std::any_of(results->elements().begin(), results->elements().end(), hasName);
  return because(named ? Why::noOtherInRange : Why::onlyHiddenInRange);
}

}  // namespace wifi_profile::cli
