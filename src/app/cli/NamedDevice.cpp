#include "app/cli/NamedDevice.h"

#include <algorithm>
#include <fmt/format.h>

#include "app/cli/DemoScenario.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "devices/scenario/ScenarioReader.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::cli {
namespace {

constexpr std::string_view kDemo = "demo";
constexpr std::string_view kMachine = "linux";
constexpr std::string_view kInterfaceOfMachine = "linux:";

}  // namespace

bool isOnPaper(const std::optional<std::string>& device) {
  return device && *device != kMachine && !device->starts_with(kInterfaceOfMachine);
}

std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device) {
  return isOnPaper(device) && device != kDemo ? device : std::nullopt;
}

std::variant<scenario::Scenario, Failure> readScenarioDevice(const std::string& device) {
  auto content = device == kDemo ? std::string(kDemoScenario) : readFile(device);
  if (const auto* problem = std::get_if<Problem>(&content)) {
    return Failure{kExitScenario, problem->message};
  }
  const auto document = runtime::readJson(std::get<std::string>(content));
  if (const auto* fault = std::get_if<runtime::JsonFault>(&document)) {
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

std::variant<std::shared_ptr<const linux::Machine>, Failure> openMachine(
    const std::optional<std::string>& device) {
  std::string interface;
  if (device && device->starts_with(kInterfaceOfMachine)) {
    interface = device->substr(kInterfaceOfMachine.size());
    if (interface.empty()) {
      return Failure{kExitUsage, unexpected("--device", "\"linux:\" without a name",
                                            "linux, or linux:IFNAME such as linux:wlan0")
                                     .message};
    }
  }
  auto opened = linux::Machine::open(interface);
  if (const auto* why = std::get_if<Error>(&opened)) {
    return Failure{kExitNoDevice, fmt::format("{}{} Without Wi-Fi there is --device demo.",
                                              device ? *device + ": " : "", why->message)};
  }
  return std::get<std::shared_ptr<linux::Machine>>(std::move(opened));
}

}  // namespace wifi_profile::cli
