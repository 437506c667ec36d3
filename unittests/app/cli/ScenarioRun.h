// Runs scenarios inside a test process.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/cli/DiagnosticRun.h"
#include "report/Report.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/RunLoop.h"

namespace wifi_profile::testing {

// What came out of a run.
struct ScenarioResult {
  cli::Ending ending;
  std::string record;     // as JSON; empty when the run did not finish
  std::string trace;      // JSON lines
  std::string lines;      // standard error
  std::string reason;     // of a run that got stuck
  report::Report report;  // of a run that finished
};

// What a run is asked for.
struct Wish {
  Wish() = default;
  // Without the list of networks.
  Wish(std::optional<std::string> name)
      : networkName(std::move(name)) {}          // NOLINT: a name is a wish
  Wish(const char* name) : networkName(name) {}  // NOLINT

  std::optional<std::string> networkName;
  bool pick = false;
  std::string_view language = runtime::kKeysLanguage;
  std::shared_ptr<app::PersonScreen> person;
  bool traceClose = false;  // the device's end is an event, "device.close"
};

// A scenario file of the project, such as "scenarios/demo.json".
std::string projectFile(const std::string& path);

// Runs the scenario that `json` holds, which must be a good one, on `loop`. `before` may do
// something to the run first.
ScenarioResult runScenario(const std::string& json, runtime::RunLoop& loop, const Wish& wish = {},
                           const std::function<void(cli::DiagnosticRun&)>& before = nullptr);

// The same in virtual time.
ScenarioResult runInVirtualTime(const std::string& json, std::uint64_t seed = 0,
                                const Wish& wish = {});

}  // namespace wifi_profile::testing
