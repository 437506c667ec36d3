// Whether the Wi-Fi driver takes turns with Bluetooth (coexistence), from the parameters of its
// kernel module.
#pragma once

#include <filesystem>
#include <string>

#include "analysis/facts/DeviceFacts.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux {

// Reads the driver's coexistence parameter. noHardware: there is no such interface, or no driver
// behind it. notSupported: the driver's module has no such parameter. notPermitted, failed: the
// parameter cannot be read. Any thread.
Result<facts::Coexistence> readCoexistence(const std::string& interface,
                                           const std::filesystem::path& sysfs = "/sys");

}  // namespace wifi_profile::linux
