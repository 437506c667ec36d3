#include "app/cli/ScenarioRun.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

#include "app/cli/TraceFile.h"
#include "devices/scenario/ScenarioReader.h"
#include "report/ReportDocument.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile::testing {
namespace {

// Traces the call that ends its measurements.
class CloseTracingDevice final : public cli::ScenarioRunDevice {
 public:
  using ScenarioRunDevice::ScenarioRunDevice;
  void close() override { traceEvent("device.close"); }
};

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

std::string contentOf(std::FILE* file) {
  std::string content;
  std::rewind(file);
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) content += static_cast<char>(c);
  return content;
}

std::string contentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

std::shared_ptr<WiFiProfileInputs> inputsFor(const Wish& wish) {
  Dictionary::Entries parameters{{"maxScanCacheAge", Number::withUnsigned(60)},
                                 {"reprofileWithUI", Number::withBool(wish.pick)}};
  if (wish.networkName) parameters["networkName"] = makeText(*wish.networkName);
  auto inputs = std::make_shared<WiFiProfileInputs>();
  EXPECT_TRUE(inputs->validateAndInitializeParameters(makeDictionary(std::move(parameters))));
  return inputs;
}

}  // namespace

std::string projectFile(const std::string& path) {
  const std::string content = contentOf(std::string(WIFI_PROFILE_SOURCE_DIR "/") + path);
  EXPECT_FALSE(content.empty()) << path;
  return content;
}

ScenarioResult runScenario(const std::string& json, runtime::RunLoop& loop, const Wish& wish,
                           const std::function<void(cli::DiagnosticRun&)>& before) {
  const auto document = runtime::readJson(json);
  const auto read = scenario::readScenario(*document);
  const std::string tracePath =
      ::testing::TempDir() + "trace-" + std::to_string(::getpid()) + ".ndjson";
  const File lines(std::tmpfile());
  ScenarioResult result{};
  {
    cli::TraceFile trace(loop, cli::TraceFile::File(std::fopen(tracePath.c_str(), "wb")),
                         tracePath);
    const InstalledPlatform installedTrace({.trace = &trace});
    cli::ProgressLine line(lines.get(), cli::ProgressLine::Shows::lines);
    const auto& scenario = *read;
    std::unique_ptr<cli::RunDevice> device =
        wish.traceClose ? std::make_unique<CloseTracingDevice>(scenario, loop)
                        : std::make_unique<cli::ScenarioRunDevice>(scenario, loop);
    runtime::BuiltInStringTable texts(wish.language);
    runtime::IcuNameCollator collator("C");
    const auto run = std::make_shared<cli::DiagnosticRun>(
        std::move(device), inputsFor(wish),
        cli::Surroundings{loop, line, texts, collator, wish.person});
    if (before) before(*run);
    result.ending = run->run();
    if (result.ending == cli::Ending::finished) {
      result.record = runtime::jsonText(makeDictionary(
                          {{"data", run->data()},
                           {"statusCode", Number::withInteger(run->finishedRun().statusCode)}})) +
                      "\n";
      result.report = report::reportOf(run->finishedRun());
    }
    if (result.ending == cli::Ending::stuck) result.reason = run->reason();
    EXPECT_TRUE(trace.status());
  }
  result.trace = contentOf(tracePath);
  result.lines = contentOf(lines.get());
  std::remove(tracePath.c_str());
  return result;
}

ScenarioResult runInVirtualTime(const std::string& json, std::uint64_t seed, const Wish& wish) {
  runtime::VirtualTimeRunLoop loop(seed);
  return runScenario(json, loop, wish);
}

}  // namespace wifi_profile::testing
