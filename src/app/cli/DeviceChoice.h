// Chooses the device of a run from the command line.
#pragma once

#include <functional>
#include <memory>
#include <variant>

#include "app/cli/CommandLine.h"
#include "app/cli/Console.h"
#include "app/cli/RunDevice.h"

namespace wifi_profile::cli {

// Makes the device of a run. `pace` must outlive it.
using MakeDevice = std::function<std::unique_ptr<RunDevice>(Pace& pace)>;

struct ChosenDevice {
  MakeDevice make;
  bool hasUser;  // a script performs the user's actions
};

// Reads the scenario or, for this machine, reads the settings and then looks for the radio.
std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options);

}  // namespace wifi_profile::cli
