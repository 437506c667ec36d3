// Chooses the device of a run from the command line.
#pragma once

#include <functional>
#include <variant>

#include "app/cli/CommandLine.h"
#include "app/cli/Console.h"
#include "app/cli/DiagnosticRun.h"

namespace wifi_profile::cli {

// Makes the device of a run. The arguments must outlive the device.
using MakeDevice = std::function<RunDevice(Pace& pace, Trace& trace)>;

struct ChosenDevice {
  MakeDevice make;
  bool hasUser;  // a script performs the user's actions
};

// Reads the scenario or, for this machine, reads the settings and then looks for the radio.
std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options);

}  // namespace wifi_profile::cli
