// Whether the Wi-Fi driver takes turns with Bluetooth, from the parameters of its kernel module.
#pragma once

#include <filesystem>
#include <string>

#include "checks/DeviceFacts.h"
#include "checks/Known.h"

namespace wifi_profile::machine {

// noHardware where there is no such interface, or no driver behind it; notSupported where the
// driver's module has no such parameter; notPermitted and failed where it cannot be read. Any
// thread.
checks::Known<checks::Coexistence> readCoexistence(const std::string& interface,
                                                   const std::filesystem::path& sysfs = "/sys");

}  // namespace wifi_profile::machine
