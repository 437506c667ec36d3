// From set-up to the run, and the clean-up. State: the inputs, the three configurations, the three
// findings dictionaries, the counters and flags, `wifiStatus`, and the two handles that the
// clean-up releases.

#include <chrono>

#include "diagnostic/controller/ErrorLog.h"
#include "diagnostic/controller/RunPlan.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/DiagnosticsSupport.h"
#include "diagnostic/platform/ProgrammingError.h"
#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile {
namespace {

constexpr std::chrono::nanoseconds kDelayBeforeTheEnd{500'000'000};
constexpr int kIso8601FormatterType = 0;

DictionaryRef configurationOf(const NumberRef& maxScanCacheAge) {
  return makeDictionary({{"MaxScanCacheAge", maxScanCacheAge}});
}

}  // namespace

void WiFiProfileViewController::setupWithInputs(
    const std::shared_ptr<WiFiProfileInputs>& validInputs,
    const std::shared_ptr<HxResponder>& /*responder*/) {
  if (!validInputs || !validInputs->areValid()) {
    programmingError("setupWithInputs was called with inputs that are not valid");
  }
  inputs.set(validInputs);
  completedTests.set(0);
  refreshEnabled.set(false);
  progressScreenVisible.set(false);
  scanFinished.set(false);
  currentNetworkConfiguration.set(configurationOf(validInputs->maxScanCacheAge()));
  freshScanConfiguration.set(configurationOf(Number::withInteger(0)));
  deviceData.set(std::make_shared<Dictionary>());
  currentNetworkData.set(std::make_shared<Dictionary>());
  selectedNetworkData.set(std::make_shared<Dictionary>());
  if (HsTestAutomation::sharedInstance()->testAutomationEnabled()) {
    HsTestAutomation::postConfiguration(makeDictionary({
        {"parameters", validInputs->parameters()},
        {"predicates", makeDictionary({})},
        {"specifications", makeDictionary({})},
    }));
  }
}

void WiFiProfileViewController::start() {
  const auto alive = self();  // the host may release the controller at an early end
  const auto theInputs = inputs();
  if (!theInputs) programmingError("start was called before setupWithInputs");
  const bool list = theInputs->reprofileWithNetworksListUI();
  if (!list) {
    determineCurrentNetwork();
    if (!theInputs->selectedNetworkName()) {
      theInputs->setSelectedNetworkName(joinedNameOf(wifiStatus()));
    }
    runTests();
  } else if (setupWiFi()) {
    if (wifiPoweredOn()) {
      displayNetworkList();
    } else {
      presentWiFiPoweredOffAlert();
    }
  }
  // Do this after the run has been posted and the progress screen has been shown: the navigation
  // bar must be on top.
  setupViewWithNetworkList(theInputs->reprofileWithNetworksListUI());
}

void WiFiProfileViewController::teardown() { cleanUp(); }

void WiFiProfileViewController::determineCurrentNetwork() {
  VqErrorRef error;
  const auto status = VqClient::sharedClient()->queryStatusForPeer(nullptr, error);
  const bool failed = codeOf(error) != 0;
  notifyRunObserver([&](RunObserver& observer) {
    observer.statusWasQueried(failed ? std::optional(error->cause()) : std::nullopt);
  });
  if (failed) {
    logError([&] { return "Query Status failed with error: " + error->description(); });
    return;
  }
  wifiStatus.set(status ? status->wifi : nullptr);
}

void WiFiProfileViewController::nextTapped(const ObjectRef& /*sender*/) { runTests(); }

void WiFiProfileViewController::runTests() {
  displayProgressScreen();
  WorkQueues::shared()->postToGlobal([self = self()] { self->runBatchesAndScheduleEnd(); });
}

void WiFiProfileViewController::runBatchesAndScheduleEnd() {
  const TextRef selectedName = inputs()->selectedNetworkName();
  const RunPlan plan = planRun(joinedNameOf(wifiStatus()), selectedName);
  runPlan.set(plan);
  totalTests.set(plan.totalTests);
  notifyRunObserver([&](RunObserver& observer) { observer.progressed(0, plan.totalTests); });
  configuration.set(selectedName ? makeDictionary({{"MaxScanCacheAge", inputs()->maxScanCacheAge()},
                                                   {"NetworkName", selectedName}})
                                 : currentNetworkConfiguration());
  runDeviceConfigurationDiagnosticsTests();
  if (plan.runCurrentNetwork) runCurrentNetworkDiagnosticsTests();
  if (plan.runSelectedNetwork) runSelectedNetworkDiagnosticsTests();
  WorkQueues::shared()->postToGlobalAfter(
      kDelayBeforeTheEnd, [self = self(), statusCode = plan.statusCode] {
        self->endTestWithStatusCode(Number::withInteger(statusCode));
      });
}

TextRef WiFiProfileViewController::timestampFormattedInISO8601(
    const std::optional<Date>& date) const {
  return HsDateFormatter::sharedFormatter()
      ->formatterWithType(kIso8601FormatterType)
      .stringFromDate(date);
}

void WiFiProfileViewController::cleanUp() {
  WorkQueues::shared()->runOnGlobalAndWait([self = self()] {
    notifyRunObserver([](RunObserver& observer) { observer.runEnded(); });
    VqClient::sharedClient()->cancelAllRequests();
    if (const auto handle = self->manager.exchange(nullptr)) releaseWiFiHandle(handle);
    if (const auto handle = self->device.exchange(nullptr)) releaseWiFiHandle(handle);
  });
}

}  // namespace wifi_profile
