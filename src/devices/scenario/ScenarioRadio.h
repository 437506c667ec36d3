// The radio of a device on paper.
#pragma once

#include <atomic>

#include "devices/ManagedRadio.h"
#include "devices/scenario/Scenario.h"

namespace wifi_profile::scenario {

class ScenarioRadio final : public ManagedRadio {
 public:
  // `trace` must outlive the radio.
  ScenarioRadio(const DeviceSettings& device, Trace& trace);

  // The radio is switched from outside: a notification is posted to the main queue, also when the
  // radio was in that state already. Any thread.
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
