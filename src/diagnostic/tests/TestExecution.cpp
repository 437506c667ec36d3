// How a test runs: one request, one result, its verdict and its information.

#include "diagnostic/controller/ErrorLog.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile {
namespace {

ObjectRef verdictOf(const CatalogueTest& test, bool result) {
  if (test.verdictForm == VerdictForm::inverseInteger) return Number::withInteger(result ? 0 : 1);
  return Number::withBool(result);
}

bool passesGate(Gate gate, const DiagnosticsTestResult& result) {
  if (gate == Gate::none) return true;
  return result.didPass == (gate == Gate::onlyWhenPassed);
}

// Calls `target` before every write to get the dictionary.
template <class Target>
void runTest(WiFiProfileViewController& controller, const CatalogueTest& test,
             const DictionaryRef& configuration, Target target) {
  VqErrorRef error;
  const DiagnosticsTestResults results = VqClient::sharedClient()->runDiagnosticsTests(
      {VqDiagnosticsTestRequest::requestWithTestID(test.id, configuration)}, nullptr, nullptr,
      error);
  if (codeOf(error) != 0) {
    logError(
        [&] { return std::string(test.label) + " failed with error: " + error->description(); });
    return;
  }
  const auto result = controller.testResultFromResults(results);
  if (!result) return;
  target()->setObject(verdictOf(test, result->result), test.resultKey);
  if (test.information().empty() || !passesGate(test.gate, *result)) return;
  const DictionaryRef info = result->info;
  if (!info) {
    logError([] { return std::string("Info not found."); });
    return;
  }
  for (const InformationCopy& copy : test.information()) {
    const ObjectRef found = test.handler(controller, info->objectForKey(copy.infoKey));
    if (!found) {
      if (!copy.logName.empty())
        logError([&] { return std::string(copy.logName) + " not found."; });
    } else if (!copy.outputKey.empty()) {
      target()->setObject(found, copy.outputKey);
    }
  }
}

}  // namespace

void WiFiProfileViewController::runDeviceConfigurationTest(DiagnosticsTestID testID) {
  runTest(*this, catalogueTest(testID), configuration(), [this] { return deviceData(); });
}

void WiFiProfileViewController::runCurrentNetworkTest(
    DiagnosticsTestID testID, const DictionaryRef& testConfiguration,
    const MutableDictionaryRef& resultsDictionary) {
  runTest(*this, catalogueTest(testID), testConfiguration,
          [held = resultsDictionary] { return held; });
}

std::shared_ptr<const DiagnosticsTestResult> WiFiProfileViewController::testResultFromResults(
    const DiagnosticsTestResults& results) const {
  if (!results || results->empty()) {
    logError([] { return std::string("Results not found."); });
    return nullptr;
  }
  auto result = results->front();
  if (!result) logError([] { return std::string("Test Result not found."); });
  return result;
}

}  // namespace wifi_profile
