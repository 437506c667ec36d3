#include "host/NetworksInRange.h"

#include <fmt/format.h>

#include "host/ExitStatus.h"
#include "host/Files.h"
#include "host/NamedDevice.h"

namespace wifi_profile {
namespace {

NetworksInRange networksOf(const checks::Known<checks::Scan>& scan,
                           const checks::Known<checks::Link>& link) {
  NetworksInRange networks{.scan = *scan, .joinedBssid = std::nullopt};
  if (link) networks.joinedBssid = link->bssid;
  return networks;
}

std::variant<NetworksInRange, Failure> networksOfMachine(const ScanOptions& options) {
  auto opened = openMachine(options.device);
  if (auto* failure = std::get_if<Failure>(&opened)) return std::move(*failure);
  const auto& machine = *std::get<std::shared_ptr<const machine::Machine>>(opened);
  const machine::Cancellation nobody;  // an interrupt ends the program
  const machine::Patience patience{machine::Clock::now() + machine::kScanLimit, nobody};
  const auto scan = machine.scan(std::chrono::seconds(options.maxScanCacheAge), patience);
  if (!scan) return Failure{kExitNoDevice, scan.why().sentence};
  return networksOf(scan, machine.link(patience));
}

}  // namespace

std::variant<NetworksInRange, Failure> networksInRange(const ScanOptions& options) {
  if (!isOnPaper(options.device)) return networksOfMachine(options);
  auto read = readScenarioDevice(*options.device);
  if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
  const auto& world = std::get<scenario::Scenario>(read).world;
  if (world && !world->facts.scan && !world->facts.scan.why().sentence.empty()) {
    return Failure{kExitNoDevice,
                   fmt::format("{}: {}", *options.device, world->facts.scan.why().sentence)};
  }
  if (!world || !world->facts.scan) {
    return Failure{kExitNoDevice, unexpected(*options.device, "no \"scan\" in a \"world\"",
                                             "a scenario whose world has one")
                                      .message};
  }
  return networksOf(world->facts.scan, world->facts.link);
}

}  // namespace wifi_profile
