// The device that the command line names.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "host/CommandLine.h"
#include "host/DiagnosticRun.h"

namespace wifi_profile {

// A problem that ends the program, and the status it ends with.
struct Failure {
  int status;
  std::string message;
};

// Makes the device of a run; what it is given must outlive it.
using MakeDevice = std::function<RunDevice(Pace& pace, Trace& trace)>;

struct ChosenDevice {
  MakeDevice make;
  bool onPaper;
  bool hasUser;  // a script says what the user does
};

// Reads the scenario, or looks for this machine's radio.
std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options);

// The file that a device on paper is read from; nothing for the others.
std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device);

}  // namespace wifi_profile
