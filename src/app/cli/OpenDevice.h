// Opens the device that `--device` names, for all commands.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "devices/linux/WifiDevice.h"
#include "devices/scenario/Scenario.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::cli {

// Returns true if `device` is a scenario, false if it is this computer.
bool isScenario(const std::optional<std::string>& device);

// Returns the file that a scenario is read from; empty for the built-in scenario and for this
// computer.
std::optional<std::string> scenarioFileOf(const std::optional<std::string>& device);

// Reads a scenario. `device` is "demo" or a file.
Result<scenario::Scenario> openScenario(const std::string& device);

// Returns the interface in "linux:IFNAME"; empty: any interface.
std::string interfaceOf(const std::optional<std::string>& device);

// Opens the Wi-Fi of this computer. Inline, so that a program that only runs scenarios does not
// load the libraries of the Linux device.
inline Result<std::shared_ptr<const linux::WifiDevice>> openComputer(
    const std::optional<std::string>& device) {
  auto opened = linux::WifiDevice::open(interfaceOf(device));
  if (opened) return opened;
  Error error = opened.error();
  error.subject = device.value_or("");
  error.advice = "Use --device demo to run without Wi-Fi.";
  return error;
}

}  // namespace wifi_profile::cli
