// The radio of a simulated device.
#pragma once

#include <atomic>

#include "devices/ManagedRadio.h"
#include "devices/scenario/Scenario.h"

namespace wifi_profile::scenario {

class ScenarioRadio final : public devices::ManagedRadio {
 public:
  explicit ScenarioRadio(const DeviceSettings& device);

  // Switches the radio like the user or another program, and posts a notification to the main
  // queue, even if the radio was already in that state. Any thread.
  void switchFromOutside(bool on);

 private:
  bool hasRadio() override { return settings_.radio; }
  bool givesClients() override { return settings_.manager; }
  bool isPoweredOn() override { return power_; }
  void switchPower(bool on) override;

  const DeviceSettings settings_;
  std::atomic<bool> power_;
};

}  // namespace wifi_profile::scenario
