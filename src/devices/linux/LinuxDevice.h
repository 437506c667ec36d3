// This machine: the back ends that answer the diagnostic.
#pragma once

#include <memory>

#include "analysis/checks/Settings.h"
#include "devices/DeviceBackEnds.h"
#include "devices/Targets.h"
#include "devices/linux/LinuxService.h"
#include "devices/linux/WifiDevice.h"

namespace wifi_profile::linux {

struct LinuxDevice {
  LinuxDevice(const std::shared_ptr<const WifiDevice>& device, const devices::Targets& targets,
              const checks::Settings& settings);

  std::shared_ptr<LinuxService> service;
  devices::DeviceBackEnds backEnds;
};

}  // namespace wifi_profile::linux
