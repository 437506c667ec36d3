// The device of a run, as the command line names it.
#pragma once

#include <functional>
#include <variant>

#include "host/CommandLine.h"
#include "host/Console.h"
#include "host/DiagnosticRun.h"

namespace wifi_profile {

// Makes the device of a run; what it is given must outlive it.
using MakeDevice = std::function<RunDevice(Pace& pace, Trace& trace)>;

struct ChosenDevice {
  MakeDevice make;
  bool hasUser;  // a script says what the user does
};

// Reads the scenario, or the settings and then looks for this machine's radio.
std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options);

}  // namespace wifi_profile
