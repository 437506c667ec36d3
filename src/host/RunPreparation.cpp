#include "host/RunPreparation.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <system_error>
#include <unistd.h>

#include "devices/scenario/ScenarioReader.h"
#include "host/DemoScenario.h"
#include "host/ExitStatus.h"
#include "host/Files.h"
#include "host/Inputs.h"
#include "runtime/JsonReader.h"

namespace wifi_profile {
namespace {

constexpr std::string_view kDemo = "demo";

Failure usage(const Problem& problem) { return {kExitUsage, problem.message}; }

std::variant<scenario::Scenario, Failure> readDevice(const RunOptions& options) {
  const std::string device = options.device.value_or("linux");
  if (device == "linux" || device.starts_with("linux:")) {
    return Failure{kExitNoDevice, fmt::format("{}found no Wi-Fi device of this machine: this build "
                                              "reads scenarios only; try --device demo",
                                              options.device ? device + ": " : "")};
  }
  const bool demo = device == kDemo;
  auto content = demo ? std::string(kDemoScenario) : readFile(device);
  if (const auto* problem = std::get_if<Problem>(&content)) {
    return Failure{kExitScenario, problem->message};
  }
  const auto document = readJson(std::get<std::string>(content));
  if (const auto* fault = std::get_if<JsonFault>(&document)) {
    return Failure{kExitScenario,
                   unexpected(fmt::format("{}:{}:{}", device, fault->line, fault->column),
                              fault->found, fault->expected)
                       .message};
  }
  auto read = scenario::readScenario(std::get<ObjectRef>(document));
  if (const auto* fault = std::get_if<scenario::Fault>(&read)) {
    const std::string place = fault->pointer.empty() ? "at the top" : "at " + fault->pointer;
    return Failure{
        kExitScenario,
        unexpected(fmt::format("{}: {}", device, place), fault->found, fault->expected).message};
  }
  return std::get<scenario::Scenario>(std::move(read));
}

// Whether a file is an input of the run. What is no file proper, a terminal say, can be both.
bool readsFrom(const RunOptions& options, const std::string& file) {
  std::error_code missing;  // of a file that is not there: then it is not the same, either
  if (!std::filesystem::is_regular_file(file, missing)) return false;
  const auto isFile = [&](const std::optional<std::string>& input) {
    return input && std::filesystem::equivalent(*input, file, missing);
  };
  return (options.device != kDemo && isFile(options.device)) || isFile(options.parametersFile);
}

}  // namespace

bool environmentHas(const char* name) {
  const char* const value = std::getenv(name);
  return value && *value != '\0';
}

bool isTerminal(int descriptor) {
  const char* const kind = std::getenv("TERM");
  return isatty(descriptor) != 0 && !(kind && std::strcmp(kind, "dumb") == 0);
}

Ui uiOf(const RunOptions& options) {
  if (options.ui) return *options.ui;
  // In virtual time there is no time for a person.
  const bool onTerminal = isTerminal(STDIN_FILENO) && isTerminal(STDOUT_FILENO);
  return onTerminal && !options.virtualTime ? Ui::terminal : Ui::none;
}

std::string cannotBeWritten(std::string_view place, int error) {
  return unexpected(place, std::generic_category().message(error), "an output that can be written")
      .message;
}

std::variant<PreparedRun, Failure> prepareRun(const RunOptions& options) {
  const Ui ui = uiOf(options);
  if (ui != Ui::none && options.virtualTime) {
    return usage(
        unexpected("--time", "virtual", "real: a person at a screen needs time (or --ui none)"));
  }
  if (options.device == "-" && options.parametersFile == "-") {
    return usage(
        unexpected("--device and --parameters", "- for both", "standard input for one of them"));
  }
  auto inputs = inputsOf(options);
  if (const auto* problem = std::get_if<Problem>(&inputs)) return usage(*problem);
  auto device = readDevice(options);
  if (auto* failure = std::get_if<Failure>(&device)) return std::move(*failure);
  PreparedRun run{.inputs = std::get<std::shared_ptr<WiFiProfileInputs>>(inputs),
                  .scenario = std::get<scenario::Scenario>(std::move(device)),
                  .traceFile = nullptr};
  if (run.inputs->reprofileWithNetworksListUI() && !run.scenario.user && ui == Ui::none) {
    return usage(unexpected(placeOfPick(options), "a device without a user",
                            "a scenario with \"user\" steps, or --ui terminal or window: "
                            "--ui none draws no list to pick from"));
  }
  if (options.traceFile) {
    if (readsFrom(options, *options.traceFile)) {
      return usage(
          unexpected("--trace", "a file that is read, too", "a file that may be overwritten"));
    }
    run.traceFile.reset(std::fopen(options.traceFile->c_str(), "wb"));
    if (!run.traceFile) {
      return Failure{kExitOutput, cannotBeWritten(*options.traceFile, errno)};
    }
  }
  return run;
}

}  // namespace wifi_profile
