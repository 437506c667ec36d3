#include "devices/OpenLinuxDevice.h"

#include "devices/linux/LinuxDevice.h"

namespace wifi_profile::devices {

Result<OpenedDevice> openLinuxDevice(const std::string& interface, const Targets& targets,
                                     const checks::Settings& settings) {
  auto machine = linux::WifiDevice::open(interface);
  if (!machine) return machine.error();
  const linux::LinuxDevice device(*machine, targets, settings);
  return OpenedDevice{.backEnds = device.backEnds,
                      .close = [service = device.service] { service->close(); }};
}

}  // namespace wifi_profile::devices
