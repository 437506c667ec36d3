// What the diagnostic costs on top of its service, and what writing its record costs.

#include <benchmark/benchmark.h>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/cli/DiagnosticRun.h"
#include "devices/scenario/ScenarioReader.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile {
namespace {

const std::string& demoText() {
  static const std::string text = [] {
    std::ostringstream content;
    content << std::ifstream(WIFI_PROFILE_SOURCE_DIR "/scenarios/demo.json").rdbuf();
    return content.str();
  }();
  return text;
}

const scenario::Scenario& demo() {
  static const scenario::Scenario read = *scenario::readScenario(*runtime::readJson(demoText()));
  return read;
}

DictionaryRef runDemo() {
  static std::FILE* const nowhere = std::fopen("/dev/null", "w");
  auto inputs = std::make_shared<WiFiProfileInputs>();
  inputs->validateAndInitializeParameters(
      makeDictionary({{"maxScanCacheAge", Number::withUnsigned(60)},
                      {"reprofileWithUI", Number::withBool(false)},
                      {"networkName", makeText("Café Linde")}}));
  runtime::VirtualTimeRunLoop loop;
  cli::ProgressLine line(nowhere, cli::ProgressLine::Shows::lines);
  runtime::BuiltInStringTable texts("en");
  runtime::IcuNameCollator collator("en");
  const auto run =
      std::make_shared<cli::DiagnosticRun>(std::make_unique<cli::ScenarioRunDevice>(demo(), loop),
                                           inputs, cli::Surroundings{loop, line, texts, collator});
  run->run();
  return run->data();
}

// The reference: the same 56 requests put to the same service, and nothing done with the answers.
void serviceAlone(benchmark::State& state) {
  for (auto _ : state) {
    runtime::VirtualTimeRunLoop loop;
    loop.postToGlobal([&] {
      scenario::ScenarioService service(demo(), loop);
      const auto ask = [&](const auto& batch) {
        for (const DiagnosticsTestID test : batch) {
          VqErrorRef error;
          benchmark::DoNotOptimize(service.runDiagnosticsTests(
              {VqDiagnosticsTestRequest::requestWithTestID(test, nullptr)}, nullptr, nullptr,
              error));
        }
      };
      ask(kDeviceConfigurationBatch);
      ask(kCurrentNetworkBatch);
      ask(kSelectedNetworkBatch);
    });
    loop.runUntilIdle();
  }
}
BENCHMARK(serviceAlone)->UseRealTime();

void wholeRun(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(runDemo());
}
BENCHMARK(wholeRun)->UseRealTime();

// The reference for reading: the JSON library's own tree of the same text.
void readByTheLibrary(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(demoText()));
}
BENCHMARK(readByTheLibrary);

void readAsValues(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(runtime::readJson(demoText()));
}
BENCHMARK(readAsValues);

void writeByTheLibrary(benchmark::State& state) {
  const auto record = nlohmann::json::parse(runtime::jsonText(runDemo()));
  for (auto _ : state) benchmark::DoNotOptimize(record.dump());
}
BENCHMARK(writeByTheLibrary);

void writeOfValues(benchmark::State& state) {
  const DictionaryRef record = runDemo();
  for (auto _ : state) benchmark::DoNotOptimize(runtime::jsonText(record));
}
BENCHMARK(writeOfValues);

}  // namespace
}  // namespace wifi_profile
