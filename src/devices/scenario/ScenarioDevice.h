// A complete simulated device: all back ends that a scenario provides.
#pragma once

#include <memory>

#include "devices/DeviceBackEnds.h"
#include "devices/scenario/Scenario.h"
#include "devices/scenario/ScenarioRadio.h"
#include "devices/scenario/ScenarioService.h"

namespace wifi_profile::scenario {

struct ScenarioDevice {
  // `pace` must outlive the device.
  ScenarioDevice(const Scenario& scenario, Pace& pace);

  devices::DeviceBackEnds backEnds() const { return {service, radio, capability, automation}; }

  std::shared_ptr<ScenarioService> service;
  std::shared_ptr<ScenarioRadio> radio;
  std::shared_ptr<DeviceCapability> capability;
  std::shared_ptr<HsTestAutomation> automation;
};

}  // namespace wifi_profile::scenario
