#include "devices/scenario/ScenarioDevice.h"

namespace wifi_profile::scenario {

ScenarioDevice::ScenarioDevice(const Scenario& scenario, Pace& pace, Trace& trace)
    : service(std::make_shared<ScenarioService>(scenario, pace, trace)),
      radio(std::make_shared<ScenarioRadio>(scenario.device, trace)),
      capability(devices::capabilityOf(scenario.device.wlanWording, trace)),
      automation(devices::automationOf(scenario.device.testAutomation, trace)) {}

}  // namespace wifi_profile::scenario
