#include "host/DeviceChoice.h"

#include <algorithm>
#include <fmt/format.h>

#include "devices/linux/LinuxDevice.h"
#include "devices/scenario/ScenarioReader.h"
#include "host/DemoScenario.h"
#include "host/ExitStatus.h"
#include "host/Files.h"
#include "host/SettingsFile.h"
#include "runtime/JsonReader.h"

namespace wifi_profile {
namespace {

constexpr std::string_view kDemo = "demo";
constexpr std::string_view kMachine = "linux";

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

NetworksInRange networksOf(const checks::Known<checks::Scan>& scan,
                           const checks::Known<checks::Link>& link) {
  NetworksInRange networks{.scan = *scan, .joinedBssid = std::nullopt};
  if (link) networks.joinedBssid = link->bssid;
  return networks;
}

// What follows "linux:"; empty: any interface.
std::string interfaceOf(const std::optional<std::string>& device) {
  return device ? device->substr(std::min(device->size(), kMachine.size() + 1)) : "";
}

std::variant<std::shared_ptr<machine::Machine>, Failure> openMachine(
    const std::optional<std::string>& device, const machine::Targets& targets) {
  auto opened = machine::Machine::open(interfaceOf(device), targets);
  if (const auto* why = std::get_if<checks::Unknown>(&opened)) {
    return Failure{kExitNoDevice, fmt::format("{}{} Without Wi-Fi there is --device demo.",
                                              device ? *device + ": " : "", why->sentence)};
  }
  return std::get<std::shared_ptr<machine::Machine>>(std::move(opened));
}

std::variant<ChosenDevice, Failure> chooseMachine(const RunOptions& options) {
  auto read = readSettingsFiles(settingsFiles());
  if (const auto* problem = std::get_if<Problem>(&read)) {
    return Failure{kExitSettings, problem->message};
  }
  auto& settings = std::get<ToolSettings>(read);
  if (options.site) {
    if (!isWebAddress(*options.site)) {
      return Failure{kExitUsage, unexpected("--site", fmt::format("\"{}\"", *options.site),
                                            "an address such as https://example.com/")
                                     .message};
    }
    settings.targets.siteUrl = *options.site;
    settings.targets.siteText.clear();
  }
  auto opened = openMachine(options.device, settings.targets);
  if (auto* failure = std::get_if<Failure>(&opened)) return std::move(*failure);
  auto machine = std::get<std::shared_ptr<machine::Machine>>(std::move(opened));
  return ChosenDevice{.make =
                          [machine, checks = settings.checks](Pace&, Trace& trace) {
                            const machine::LinuxDevice device(machine, checks, trace);
                            return RunDevice{
                                .backEnds = device.backEnds,
                                .close = [service = device.service] { service->close(); }};
                          },
                      .hasUser = false};
}

std::variant<NetworksInRange, Failure> networksOfMachine(const ScanOptions& options) {
  auto opened = openMachine(options.device, {});
  if (auto* failure = std::get_if<Failure>(&opened)) return std::move(*failure);
  auto& machine = *std::get<std::shared_ptr<machine::Machine>>(opened);
  const machine::Cancellation nobody;  // an interrupt ends the program
  const machine::Patience patience{machine::Clock::now() + machine::LinuxService::kScanLimit,
                                   nobody};
  const auto scan = machine.scan(std::chrono::seconds(options.maxScanCacheAge), patience);
  if (!scan) return Failure{kExitNoDevice, scan.why().sentence};
  return networksOf(scan, machine.link(patience));
}

}  // namespace

bool isOnPaper(const std::optional<std::string>& device) {
  return device && *device != kMachine && !device->starts_with("linux:");
}

std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device) {
  return isOnPaper(device) && device != kDemo ? device : std::nullopt;
}

std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options) {
  if (!isOnPaper(options.device)) return chooseMachine(options);
  if (options.site) {
    return Failure{kExitUsage, unexpected("--site", "a device on paper",
                                          "this machine (--device linux): a device on paper "
                                          "reaches what its file says")
                                   .message};
  }
  auto read = readDevice(*options.device);
  if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
  auto scenario =
      std::make_shared<const scenario::Scenario>(std::get<scenario::Scenario>(std::move(read)));
  const bool hasUser = scenario->user.has_value();
  return ChosenDevice{
      .make = [scenario](Pace& pace, Trace& trace) { return onPaper(*scenario, pace, trace); },
      .hasUser = hasUser};
}

std::variant<NetworksInRange, Failure> networksInRange(const ScanOptions& options) {
  if (!isOnPaper(options.device)) return networksOfMachine(options);
  auto read = readDevice(*options.device);
  if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
  const auto& world = std::get<scenario::Scenario>(read).world;
  if (!world || !world->facts.scan) {
    return Failure{kExitNoDevice, unexpected(*options.device, "no \"scan\" in a \"world\"",
                                             "a scenario whose world has one")
                                      .message};
  }
  return networksOf(world->facts.scan, world->facts.link);
}

}  // namespace wifi_profile
