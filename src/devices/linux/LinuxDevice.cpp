#include "devices/linux/LinuxDevice.h"

#include "devices/linux/LinuxFacts.h"
#include "devices/linux/LinuxRadio.h"

namespace wifi_profile::linux {
namespace {

// Devices with hardware for WAPI are sold where WLAN is the usual word for Wi-Fi.
bool saysWlan(const WifiDevice& device) {
  const auto radio = device.abilities(Deadline::in(std::chrono::seconds(2)));
  return radio && radio->knowsWapi;
}

}  // namespace

LinuxDevice::LinuxDevice(const std::shared_ptr<const WifiDevice>& device,
                         const devices::Targets& targets, const checks::Settings& settings)
    : service(
          std::make_shared<LinuxService>(std::make_shared<LinuxFacts>(device, targets), settings)),
      backEnds{service,
               std::make_shared<LinuxRadio>(device->interface().name, device->systemBus(),
                                            Rfkill(device->interface().name)),
               devices::capabilityOf(saysWlan(*device)), devices::automationOf(false)} {}

}  // namespace wifi_profile::linux
