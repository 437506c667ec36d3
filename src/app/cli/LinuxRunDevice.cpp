#include "app/cli/LinuxRunDevice.h"

#include "app/cli/ExitStatus.h"
#include "app/cli/OpenDevice.h"
#include "app/cli/SettingsFile.h"
#include "devices/linux/LinuxDevice.h"
#include "runtime/JsonFields.h"

namespace wifi_profile::cli {
namespace {

class LinuxRunDevice final : public RunDevice {
 public:
  LinuxRunDevice(const std::shared_ptr<const linux::WifiDevice>& machine,
                 const ToolSettings& settings)
      : device_(machine, settings.targets, settings.checks), site_(settings.targets.siteUrl) {}

  devices::DeviceBackEnds backEnds() const override { return device_.backEnds; }
  std::string site() const override { return site_; }
  void close() override { device_.service->close(); }

 private:
  const linux::LinuxDevice device_;
  const std::string site_;
};

}  // namespace

std::variant<MakeDevice, Failure> openLinuxRunDevice(const RunOptions& options) {
  auto settings = readSettingsFiles(settingsFiles());
  if (!settings) return Failure{kExitSettings, settings.error()};
  if (options.site) {
    if (!isWebAddress(*options.site)) {
      return Failure{kExitUsage, runtime::unexpected("--site", "\"" + *options.site + "\"",
                                                     "an address such as https://example.com/")};
    }
    settings->targets.siteUrl = *options.site;
    settings->targets.siteText.clear();
  }
  auto machine = openComputer(options.device);
  if (!machine) return Failure{kExitNoDevice, machine.error()};
  return MakeDevice([machine = *machine, settings = *settings](Pace&) {
    return std::make_unique<LinuxRunDevice>(machine, settings);
  });
}

}  // namespace wifi_profile::cli
