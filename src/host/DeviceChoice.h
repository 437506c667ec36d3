// The device that the command line names.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "checks/AirFacts.h"
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
  bool hasUser;  // a script says what the user does
};

// Whether it is a scenario, not this machine.
bool isOnPaper(const std::optional<std::string>& device);

// Reads the scenario, or the settings and then looks for this machine's radio.
std::variant<ChosenDevice, Failure> chooseDevice(const RunOptions& options);

// What a table of networks is made from.
struct NetworksInRange {
  checks::Scan scan;
  std::optional<std::string> joinedBssid;  // nothing: not joined, or not known
};

// The scan of a scenario's world, or of this machine's radio.
std::variant<NetworksInRange, Failure> networksInRange(const ScanOptions& options);

// The file that a device on paper is read from; nothing for the others.
std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device);

}  // namespace wifi_profile
