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

  // Everything that the diagnostic asks of its surroundings. It must outlive `platform`.
  runtime::Iso8601Formatter dates;
  StandardError log;
  runtime::BuiltInStringTable texts("en");
  runtime::IcuNameCollator collator("en");
  const auto screen = std::make_shared<runtime::NoScreen>();
  const InstalledPlatform platform({.queues = &loop,
                                    .service = device.service.get(),
                                    .wifiManager = device.radio.get(),
                                    .capability = device.capability.get(),
                                    .automation = device.automation.get(),
                                    .dates = &dates,
                                    .log = &log,
                                    .texts = &texts,
                                    .collator = &collator,
                                    .screen = screen.get()});

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
