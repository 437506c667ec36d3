// Opens this computer's Wi-Fi as a device. Hosts include this file; those in devices/linux/ are
// internal.
#pragma once

#include <functional>
#include <string>

#include "analysis/checks/Settings.h"
#include "devices/DeviceBackEnds.h"
#include "devices/Targets.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::devices {

struct OpenedDevice {
  DeviceBackEnds backEnds;
  std::function<void()> close;  // ends all measurements; call it when the run is torn down
};

// Opens the Wi-Fi interface of this name; an empty name selects the first one. Error: there is no
// such interface (noHardware), or the kernel cannot be asked.
Result<OpenedDevice> openLinuxDevice(const std::string& interface, const Targets& targets,
                                     const checks::Settings& settings);

}  // namespace wifi_profile::devices
