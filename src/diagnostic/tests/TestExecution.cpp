// How a test runs: one request, one result, its verdict and its information.

#include "diagnostic/controller/ErrorLog.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {
namespace {

NumberRef verdictOf(const CatalogueTest& test, bool result) {
  if (test.verdictForm == VerdictForm::inverseInteger) return Number::withInteger(result ? 0 : 1);
  return Number::withBool(result);
}

bool passesGate(Gate gate, const DiagnosticsTestResult& result) {
  if (gate == Gate::none) return true;
  return result.didPass == (gate == Gate::onlyWhenPassed);
}

// Returns the line that is logged if the service returned no result.
std::string noResultLine(const DiagnosticsTestResults& results) {
  return !results || results->empty() ? "Results not found." : "Test Result not found.";
}

// Calls `target` before every write to get the dictionary.
template <class Target>
TestOutcome runTest(WiFiProfileViewController& controller, Section section,
                    const CatalogueTest& test, const DictionaryRef& configuration, Target target) {
  TestOutcome outcome{.section = section, .test = test.id};
  VqErrorRef error;
  const DiagnosticsTestResults results = VqClient::sharedClient()->runDiagnosticsTests(
      {VqDiagnosticsTestRequest::requestWithTestID(test.id, configuration)}, nullptr, nullptr,
      error);
  if (codeOf(error) != 0) {
    outcome.verdict = error->cause();
    logError(
        [&] { return std::string(test.label) + " failed with error: " + error->description(); });
    return outcome;
  }
  const auto result = controller.testResultFromResults(results);
  if (!result) {
    outcome.verdict = Error{Reason::failed, noResultLine(results)};
    return outcome;
  }
  const NumberRef verdict = verdictOf(test, result->result);
  target()->setObject(verdict, test.resultKey);
  outcome.verdict = verdict->toDouble() != 0;
  outcome.passed = result->didPass;
  outcome.remark = result->remark;
  if (test.information().empty() || !passesGate(test.gate, *result)) return outcome;
  const DictionaryRef info = result->info;
  if (!info) {
    outcome.hasDetails = false;
    logError([] { return std::string("Info not found."); });
    return outcome;
  }
  for (const InformationCopy& copy : test.information()) {
    const ObjectRef found = test.handler(controller, info->objectForKey(copy.infoKey));
    if (!found) {
      if (copy.logName.empty()) continue;
      outcome.values.push_back({copy.outputKey, nullptr});
      logError([&] { return std::string(copy.logName) + " not found."; });
    } else if (!copy.outputKey.empty()) {
      target()->setObject(found, copy.outputKey);
      outcome.values.push_back({copy.outputKey, found});
    }
  }
  return outcome;
}

template <class Target>
void runObservedTest(WiFiProfileViewController& controller, Section section,
                     DiagnosticsTestID testID, const DictionaryRef& configuration, Target target) {
  notifyRunObserver([&](RunObserver& observer) { observer.testStarted(section, testID); });
  const TestOutcome outcome =
      runTest(controller, section, catalogueTest(testID), configuration, target);
  notifyRunObserver([&](RunObserver& observer) { observer.testEnded(outcome); });
}

}  // namespace

void WiFiProfileViewController::runDeviceConfigurationTest(DiagnosticsTestID testID) {
  runObservedTest(*this, Section::device, testID, configuration(), [this] { return deviceData(); });
}

void WiFiProfileViewController::runCurrentNetworkTest(
    DiagnosticsTestID testID, const DictionaryRef& testConfiguration,
    const MutableDictionaryRef& resultsDictionary) {
  const bool isSelected = resultsDictionary == selectedNetworkData();
  runObservedTest(*this, isSelected ? Section::selectedNetwork : Section::currentNetwork, testID,
                  testConfiguration, [held = resultsDictionary] { return held; });
}

std::shared_ptr<const DiagnosticsTestResult> WiFiProfileViewController::testResultFromResults(
    const DiagnosticsTestResults& results) const {
  auto result = results && !results->empty() ? results->front() : nullptr;
  if (!result) logError([&] { return noResultLine(results); });
  return result;
}

}  // namespace wifi_profile
