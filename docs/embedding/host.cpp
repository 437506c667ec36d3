// A host in thirty lines: the diagnostic on a simulated device, in real time.
#include <cstdio>

#include "devices/scenario/ScenarioDevice.h"
#include "devices/scenario/ScenarioReader.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/Iso8601Formatter.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/NoScreen.h"
#include "runtime/SafeText.h"
#include "runtime/ThreadRunLoop.h"

using namespace wifi_profile;

struct StandardError final : DiagnosticLog {
  bool isEnabled(int, LogLevel level) const override { return level == LogLevel::error; }
  void write(int, LogLevel, const std::string& text) override {
    std::fprintf(stderr, "%s\n", runtime::safeText(text).c_str());
  }
};

int main() {
  runtime::ThreadRunLoop loop;
  const auto document = runtime::readJson(R"({"scenario": 1, "status": [{"ssid": "Home"}],
      "answers": {"PoorSignal": [{"result": true, "info": {"RSSI": -81, "Noise": -92}}]}})");
  const auto read = scenario::readScenario(std::get<ObjectRef>(document));
  const scenario::ScenarioDevice device(std::get<scenario::Scenario>(read), loop);

  // Everything that the diagnostic asks of its surroundings, for as long as these live.
  const ScopedInstall<WorkQueues> queues({std::shared_ptr<void>(), &loop});
  const ScopedInstall<VqClient> service(device.service);
  const ScopedInstall<WiFiManagerService> radio(device.radio);
  const ScopedInstall<DeviceCapability> capability(device.capability);
  const ScopedInstall<HsTestAutomation> automation(device.automation);
  const ScopedInstall<HsDateFormatter> dates(std::make_shared<runtime::Iso8601Formatter>());
  const ScopedInstall<DiagnosticLog> log(std::make_shared<StandardError>());
  const ScopedInstall<StringTable> texts(std::make_shared<runtime::BuiltInStringTable>("en"));
  const ScopedInstall<NameCollator> order(std::make_shared<runtime::IcuNameCollator>("en"));
  const ScopedInstall<toolkit::Screen> screen(std::make_shared<runtime::NoScreen>());

  const auto inputs = std::make_shared<WiFiProfileInputs>();
  if (!inputs->validateAndInitializeParameters(
          makeDictionary({{"maxScanCacheAge", Number::withUnsigned(60)},
                          {"reprofileWithUI", Number::withBool(false)}}))) {
    return 1;
  }
  const auto diagnostic = std::make_shared<WiFiProfileViewController>();
  diagnostic->setupWithInputs(inputs, nullptr);
  diagnostic->start();
  loop.runUntilIdle();  // until the record is there
  std::puts(runtime::jsonText(diagnostic->result().data()).c_str());
  diagnostic->teardown();
  loop.runUntilIdle();
}
