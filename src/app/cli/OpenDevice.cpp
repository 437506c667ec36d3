#include "app/cli/OpenDevice.h"

#include "app/cli/DemoScenario.h"
#include "app/cli/Files.h"
#include "devices/scenario/ScenarioReader.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::cli {
namespace {

constexpr std::string_view kDemo = "demo";
constexpr std::string_view kComputer = "linux";
constexpr std::string_view kInterface = "linux:";

}  // namespace

bool isScenario(const std::optional<std::string>& device) {
  return device && *device != kComputer && !device->starts_with(kInterface);
}

std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device) {
  return isScenario(device) && device != kDemo ? device : std::nullopt;
}

Result<scenario::Scenario> openScenario(const std::string& device) {
  const auto document =
      device == kDemo ? runtime::readJson(kDemoScenario, device) : readJsonFile(device);
  if (!document) return document.error();
  return scenario::readScenario(*document, device);
}

std::string interfaceOf(const std::optional<std::string>& device) {
  return device && device->starts_with(kInterface) ? device->substr(kInterface.size()) : "";
}

}  // namespace wifi_profile::cli
