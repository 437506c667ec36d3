#include "app/cli/WatchedScans.h"

#include <algorithm>
#include <utility>

#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile::cli {
namespace {

ScanOutcome outcomeOf(const DiagnosticsTestResults& results, const VqErrorRef& error) {
  if (codeOf(error) != 0) return {.passed = false, .failure = error->description()};
  const auto result = results && !results->empty() ? results->front() : nullptr;
  return {.passed = result && result->didPass && result->info, .failure = {}};
}

bool hasName(const ObjectRef& object) {
  const auto result = as<VqWiFiScanResult>(object);
  return result && result->ssidString();
}

}  // namespace

std::optional<ScanOutcome> WatchedScans::latest() const {
  const MutexLock lock(mutex_);
  return latest_;
}

DiagnosticsTestResults WatchedScans::runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                                         const VqPeer* peer,
                                                         const VqTestUpdate& update,
                                                         VqErrorRef& error) {
  auto results = service_->runDiagnosticsTests(requests, peer, update, error);
  if (!requests.empty() && requests.front()->testID() == DiagnosticsTestID::NoScanResults) {
    const MutexLock lock(mutex_);
    latest_ = outcomeOf(results, error);
  }
  return results;
}

app::EmptyList emptyListOf(const WiFiProfileViewController& controller,
                           const std::optional<ScanOutcome>& scan, std::string powerOnFailure) {
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
  if (!scan->passed) return because(Why::scanFailed, scan->failure);
  const ArrayRef results = controller.wifiScanResults();
  if (!results || results->elements().empty()) return because(Why::noneInRange);
  const bool named = std::any_of(results->elements().begin(), results->elements().end(), hasName);
  return because(named ? Why::noOtherInRange : Why::onlyHiddenInRange);
}

}  // namespace wifi_profile::cli
