// This computer as the device of a run.
#pragma once

#include <variant>

#include "app/cli/CommandLine.h"
#include "app/cli/Console.h"
#include "app/cli/RunDevice.h"

namespace wifi_profile::cli {

// Reads the settings and then looks for the radio.
std::variant<MakeDevice, Failure> openLinuxRunDevice(const RunOptions& options);

}  // namespace wifi_profile::cli
