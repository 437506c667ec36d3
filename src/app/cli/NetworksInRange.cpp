#include "app/cli/NetworksInRange.h"

#include <fmt/format.h>

#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/NamedDevice.h"

namespace wifi_profile::cli {
namespace {

std::variant<NetworksInRange, Failure> networksOfMachine(const ScanOptions& options) {
  auto opened = openMachine(options.device);
  if (auto* failure = std::get_if<Failure>(&opened)) return std::move(*failure);
  const auto& machine = *std::get<std::shared_ptr<const linux::Machine>>(opened);
  const auto deadline = linux::Deadline::in(linux::kScanLimit);  // an interrupt ends the process
  auto list = machine.scan(std::chrono::seconds(options.maxScanCacheAge), deadline);
  if (!list) return Failure{kExitNoDevice, list.error().message};
  const auto& missing = list->scan.incomplete;
  if (missing && list->scan.accessPoints.empty()) return Failure{kExitNoDevice, missing->message};
  return NetworksInRange{std::move(list->scan), std::move(list->joinedBssid)};
}

}  // namespace

std::variant<NetworksInRange, Failure> networksInRange(const ScanOptions& options) {
  if (!isOnPaper(options.device)) return networksOfMachine(options);
  auto read = readScenarioDevice(*options.device);
  if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
  const auto& world = std::get<scenario::Scenario>(read).world;
  if (world && !world->facts.scan && !world->facts.scan.error().message.empty()) {
    return Failure{kExitNoDevice,
                   fmt::format("{}: {}", *options.device, world->facts.scan.error().message)};
  }
  if (!world || !world->facts.scan) {
    return Failure{kExitNoDevice, unexpected(*options.device, "no \"scan\" in a \"world\"",
                                             "a scenario whose world has one")
                                      .message};
  }
  NetworksInRange networks{*world->facts.scan, std::nullopt};
  if (const auto& link = world->facts.link) networks.joinedBssid = link->bssid;
  return networks;
}

}  // namespace wifi_profile::cli
