// A complete host: runs the diagnostic on a scenario, in real time.
#include <cstdio>

#include "controller/WiFiProfileViewController.h"
#include "devices/scenario/ScenarioDevice.h"
#include "devices/scenario/ScenarioReader.h"
#include "platform/DiagnosticLog.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/Iso8601Formatter.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/SafeText.h"
#include "runtime/ThreadRunLoop.h"
#include "screens/none/NoScreen.h"

using namespace wifi_profile;

struct StandardError final : DiagnosticLog {
  bool isEnabled(int, LogLevel level) const override { return level == LogLevel::error; }
  void write(int, LogLevel, const std::string& text) override {
    std::fprintf(stderr, "%s\n", safeText(text).c_str());
  }
};

struct NoTrace final : Trace {
  void event(std::string_view, const Fields&) override {}
};

int main() {
  ThreadRunLoop loop;
  NoTrace trace;
  const auto document = readJson(R"({"scenario": 1, "status": [{"ssid": "Home"}],
      "answers": {"PoorSignal": [{"result": true, "info": {"RSSI": -81, "Noise": -92}}]}})");
  const auto paper = scenario::readScenario(std::get<ObjectRef>(document));
  const scenario::ScenarioDevice device(std::get<scenario::Scenario>(paper), loop, trace);

  // The platform that the diagnostic uses. It is installed for the lifetime of these objects.
  const ScopedInstall<WorkQueues> queues({std::shared_ptr<void>(), &loop});
  const ScopedInstall<VqClient> service(device.service);
  const ScopedInstall<WiFiManagerService> radio(device.radio);
  const ScopedInstall<DeviceCapability> capability(device.capability);
  const ScopedInstall<HsTestAutomation> automation(device.automation);
  const ScopedInstall<HsDateFormatter> dates(std::make_shared<Iso8601Formatter>());
  const ScopedInstall<DiagnosticLog> log(std::make_shared<StandardError>());
  const ScopedInstall<StringTable> texts(std::make_shared<BuiltInStringTable>("en"));
  const ScopedInstall<NameCollator> order(std::make_shared<IcuNameCollator>("en"));
  const ScopedInstall<toolkit::Screen> screen(std::make_shared<NoScreen>());

  const auto inputs = std::make_shared<WiFiProfileInputs>();
  if (!inputs->validateAndInitializeParameters(
          makeDictionary({{"maxScanCacheAge", Number::withUnsigned(60)},
                          {"reprofileWithUI", Number::withBool(false)}}))) {
    return 1;
  }
  const auto diagnostic = std::make_shared<WiFiProfileViewController>();
  diagnostic->setupWithInputs(inputs, nullptr);
  diagnostic->start();
  loop.runUntilIdle();  // until the record is complete
  std::puts(jsonText(diagnostic->result().data()).c_str());
  diagnostic->teardown();
  loop.runUntilIdle();
}
