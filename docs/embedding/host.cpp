// A small host: the diagnostic on a scenario's device, or on the Wi-Fi interface that is its
// argument.
#include <cstdio>

#include "devices/OpenLinuxDevice.h"
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

// A device that needs no radio.
devices::OpenedDevice openScenario(Pace& pace) {
  const auto document = runtime::readJson(R"({"scenario": 1, "status": [{"ssid": "Home"}],
      "answers": {"PoorSignal": [{"result": true, "info": {"RSSI": -81, "Noise": -92}}]}})");
  const auto read = scenario::readScenario(*document);
  const scenario::ScenarioDevice device(*read, pace);
  return {device.backEnds(), [] {}};
}

int main(int count, char** arguments) {
  runtime::ThreadRunLoop loop;
  const Result<devices::OpenedDevice> opened =
      count > 1 ? devices::openLinuxDevice(arguments[1], {}, {}) : openScenario(loop);
  if (!opened) {
    std::fprintf(stderr, "%s\n", opened.error().message.c_str());
    return 1;
  }
  const devices::DeviceBackEnds& device = opened->backEnds;

  // Everything that the diagnostic asks of its surroundings. It must outlive `platform`.
  runtime::Iso8601Formatter dates;
  StandardError log;
  runtime::BuiltInStringTable texts("en");
  runtime::IcuNameCollator collator("en");
  runtime::NoScreen screen;
  const InstalledPlatform platform({.queues = &loop,
                                    .service = device.service.get(),
                                    .wifiManager = device.radio.get(),
                                    .capability = device.capability.get(),
                                    .automation = device.automation.get(),
                                    .dates = &dates,
                                    .log = &log,
                                    .texts = &texts,
                                    .collator = &collator,
                                    .screen = &screen});

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
  opened->close();
  loop.runUntilIdle();
}
