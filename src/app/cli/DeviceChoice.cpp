#include "app/cli/DeviceChoice.h"

#include <fmt/format.h>

#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/NamedDevice.h"
#include "app/cli/SettingsFile.h"
#include "devices/linux/LinuxDevice.h"

namespace wifi_profile::cli {
namespace {

// This machine.
class LinuxRunDevice final : public RunDevice {
 public:
  LinuxRunDevice(const std::shared_ptr<const linux::Machine>& machine, const ToolSettings& settings)
      : device_(machine, settings.targets, settings.checks), site_(settings.targets.siteUrl) {}

  devices::DeviceBackEnds backEnds() const override { return device_.backEnds; }
  std::string site() const override { return site_; }
  void close() override { device_.service->close(); }

 private:
  const linux::LinuxDevice device_;
  const std::string site_;
};

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
  auto opened = openMachine(options.device);
  if (auto* failure = std::get_if<Failure>(&opened)) return std::move(*failure);
  auto machine = std::get<std::shared_ptr<const linux::Machine>>(std::move(opened));
  return ChosenDevice{
      .make = [machine,
               settings](Pace&) { return std::make_unique<LinuxRunDevice>(machine, settings); },
      .hasUser = false};
}

}  // namespace

std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options) {
  if (!isOnPaper(options.device)) return chooseMachine(options);
  if (options.site) {
    return Failure{kExitUsage, unexpected("--site", "a device on paper",
                                          "this machine (--device linux): a device on paper "
                                          "reaches what its file says")
                                   .message};
  }
  auto read = readScenarioDevice(*options.device);
  if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
  auto scenario =
      std::make_shared<const scenario::Scenario>(std::get<scenario::Scenario>(std::move(read)));
  const bool hasUser = scenario->user.has_value();
  return ChosenDevice{
      .make =
          [scenario](Pace& pace) { return std::make_unique<ScenarioRunDevice>(*scenario, pace); },
      .hasUser = hasUser};
}

}  // namespace wifi_profile::cli
