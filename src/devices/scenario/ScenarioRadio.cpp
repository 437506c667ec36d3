#include "devices/scenario/ScenarioRadio.h"

namespace wifi_profile::scenario {

ScenarioRadio::ScenarioRadio(const DeviceSettings& device)
    : devices::ManagedRadio(device.interfaces.size()), settings_(device), power_(device.power) {}

void ScenarioRadio::switchFromOutside(bool on) {
  power_ = on;
  postNotification();
}

void ScenarioRadio::switchPower(bool on) {
  if (settings_.powerOnSucceeds) {
    switchFromOutside(on);
  } else if (on) {
    powerOnFailed("The radio of the scenario stays off (\"powerOnSucceeds\" is false).");
  }
}

}  // namespace wifi_profile::scenario
