// Opens the device that `--device` names.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "app/cli/Console.h"
#include "devices/linux/Machine.h"
#include "devices/scenario/Scenario.h"

namespace wifi_profile::cli {

// Returns true if `device` is a scenario, false if it is this machine.
bool isOnPaper(const std::optional<std::string>& device);

// Returns the file that a scenario's device is read from; empty for the built-in scenario and for
// this machine.
std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device);

// Reads a scenario's device. `device` is "demo" or a file.
std::variant<scenario::Scenario, Failure> readScenarioDevice(const std::string& device);

// Opens this machine's radio.
std::variant<std::shared_ptr<const linux::Machine>, Failure> openMachine(
    const std::optional<std::string>& device);

}  // namespace wifi_profile::cli
