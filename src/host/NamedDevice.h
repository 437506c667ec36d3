// What `--device` names.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "devices/linux/Machine.h"
#include "devices/scenario/Scenario.h"
#include "host/Console.h"

namespace wifi_profile {

// Whether it is a scenario, not this machine.
bool isOnPaper(const std::optional<std::string>& device);

// The file that a device on paper is read from; nothing for the others.
std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device);

// A device on paper: "demo", or a file.
std::variant<scenario::Scenario, Failure> readScenarioDevice(const std::string& device);

// This machine's radio.
std::variant<std::shared_ptr<const machine::Machine>, Failure> openMachine(
    const std::optional<std::string>& device);

}  // namespace wifi_profile
