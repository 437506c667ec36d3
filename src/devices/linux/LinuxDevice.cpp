#include "devices/linux/LinuxDevice.h"

#include "devices/linux/LinuxRadio.h"
#include "devices/linux/MachineFacts.h"

namespace wifi_profile::linux {
namespace {

// Devices with hardware for WAPI are sold where WLAN is the usual word for Wi-Fi.
bool saysWlan(const Machine& machine) {
  const auto radio = machine.abilities(Deadline::in(std::chrono::seconds(2)));
  return radio && radio->knowsWapi;
}

}  // namespace

LinuxDevice::LinuxDevice(const std::shared_ptr<const Machine>& machine,
                         const devices::Targets& targets, const checks::Settings& settings)
    : service(std::make_shared<LinuxService>(std::make_shared<MachineFacts>(machine, targets),
                                             settings)),
      backEnds{service,
               std::make_shared<LinuxRadio>(machine->interface().name, machine->systemBus(),
                                            Rfkill(machine->interface().name)),
               devices::capabilityOf(saysWlan(*machine)), devices::automationOf(false)} {}

}  // namespace wifi_profile::linux
