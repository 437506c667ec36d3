// Any bytes as a scenario file: refused with a place, or run to its end in virtual time.

#include "Require.h"
#include "app/cli/DiagnosticRun.h"
#include "devices/scenario/ScenarioReader.h"
#include "report/ReportText.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/SafeText.h"
#include "runtime/VirtualTimeRunLoop.h"

using namespace wifi_profile;

namespace {

void requireSafe(const std::string& text) {
  std::string lines = text;
  std::erase(lines, '\n');
  require(runtime::safeText(lines) == lines, "the report is safe text");
}

void runIt(const scenario::Scenario& scenario) {
  static std::FILE* const nowhere = std::fopen("/dev/null", "w");
  auto inputs = std::make_shared<WiFiProfileInputs>();
  require(inputs->validateAndInitializeParameters(
              makeDictionary({{"maxScanCacheAge", Number::withUnsigned(60)},
                              {"reprofileWithUI", Number::withBool(scenario.user.has_value())},
                              {"networkName", makeText("Lab")}})),
          "the parameters are good");
  runtime::VirtualTimeRunLoop loop;
  cli::ProgressLine line(nowhere, cli::ProgressLine::Shows::lines);
  runtime::BuiltInStringTable texts("en");
  runtime::IcuNameCollator collator("en");
  const auto run =
      std::make_shared<cli::DiagnosticRun>(std::make_unique<cli::ScenarioRunDevice>(scenario, loop),
                                           inputs, cli::Surroundings{loop, line, texts, collator});
  if (run->run() != cli::Ending::finished) return;
  requireSafe(report::reportText(report::reportOf(run->finishedRun()), {}));
  const std::string record = runtime::jsonText(run->data());
  const auto again = runtime::readJson(record);
  require(bool(again), "the record is JSON");
  require(runtime::jsonText(*again) == record, "and reads as it was written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  const auto document = runtime::readJson({reinterpret_cast<const char*>(bytes), size});
  if (!document) return 0;
  const auto read = scenario::readScenario(*document);
  if (read) {
    runIt(*read);
  } else {
    require(!read.error().subject.empty() && !read.error().message.empty(),
            "an error says what is wrong");
  }
  return 0;
}
