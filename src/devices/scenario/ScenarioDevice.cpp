#include "devices/scenario/ScenarioDevice.h"

namespace wifi_profile::scenario {

ScenarioDevice::ScenarioDevice(const Scenario& scenario, Pace& pace)
    : service(std::make_shared<ScenarioService>(scenario, pace)),
      radio(std::make_shared<ScenarioRadio>(scenario.device)),
      capability(devices::capabilityOf(scenario.device.wlanWording)),
      automation(devices::automationOf(scenario.device.testAutomation)) {}

}  // namespace wifi_profile::scenario
