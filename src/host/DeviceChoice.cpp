#include "host/DeviceChoice.h"

#include <fmt/format.h>

#include "devices/scenario/ScenarioReader.h"
#include "host/DemoScenario.h"
#include "host/ExitStatus.h"
#include "host/Files.h"
#include "runtime/JsonReader.h"

namespace wifi_profile {
namespace {

constexpr std::string_view kDemo = "demo";

bool isMachine(const std::optional<std::string>& device) {
  return !device || device == "linux" || device->starts_with("linux:");
}

std::variant<scenario::Scenario, Failure> readDevice(const std::string& device) {
  auto content = device == kDemo ? std::string(kDemoScenario) : readFile(device);
  if (const auto* problem = std::get_if<Problem>(&content)) {
    return Failure{kExitScenario, problem->message};
  }
  const auto document = readJson(std::get<std::string>(content));
  if (const auto* fault = std::get_if<JsonFault>(&document)) {
    const std::string place = fmt::format("{}:{}:{}", device, fault->line, fault->column);
    return Failure{kExitScenario, unexpected(place, fault->found, fault->expected).message};
  }
  auto read = scenario::readScenario(std::get<ObjectRef>(document));
  if (const auto* fault = std::get_if<scenario::Fault>(&read)) {
    const std::string place = fmt::format(
        "{}: {}", device, fault->pointer.empty() ? "at the top" : "at " + fault->pointer);
    return Failure{kExitScenario, unexpected(place, fault->found, fault->expected).message};
  }
  return std::get<scenario::Scenario>(std::move(read));
}

}  // namespace

std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device) {
  return isMachine(device) || device == kDemo ? std::nullopt : device;
}

std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options) {
  if (isMachine(options.device)) {
    return Failure{kExitNoDevice, fmt::format("{}found no Wi-Fi device of this machine: this build "
                                              "reads scenarios only; try --device demo",
                                              options.device ? *options.device + ": " : "")};
  }
  auto read = readDevice(*options.device);
  if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
  auto scenario =
      std::make_shared<const scenario::Scenario>(std::get<scenario::Scenario>(std::move(read)));
  const bool hasUser = scenario->user.has_value();
  return ChosenDevice{
      .make = [scenario](Pace& pace, Trace& trace) { return onPaper(*scenario, pace, trace); },
      .onPaper = true,
      .hasUser = hasUser};
}

}  // namespace wifi_profile
