#include "devices/linux/bus/Bluez.h"

#include "devices/linux/bus/Services.h"

namespace wifi_profile::linux::bus {

using facts::Bluetooth;

Result<facts::Bluetooth> bluetoothFrom(const BusValue& objects) {
  // BlueZ always has an object of its own, so an empty map is not a list of its objects.
  if (objects.map().empty()) return unknownFrom(BusAnswer{}, kBluez);
  bool hasAdapter = false;
  facts::Bluetooth bluetooth;
  for (const auto& [path, interfaces] : objects.map()) {
    const BusValue& device = interfaces.at("org.bluez.Device1");
    hasAdapter = hasAdapter || !interfaces.at("org.bluez.Adapter1").map().empty();
    bluetooth.paired += device.at("Paired").boolean().value_or(false) ? 1 : 0;
    bluetooth.connected += device.at("Connected").boolean().value_or(false) ? 1 : 0;
  }
  if (!hasAdapter) {
    return Error{Reason::noHardware,
                 "This device has no Bluetooth adapter that BlueZ knows. Plug one in, or load its "
                 "driver."};
  }
  return bluetooth;
}

Result<facts::Bluetooth> readBluetooth(Bus& system, const Deadline& deadline) {
  const BusAnswer owner = system.ownerOf(kBluez.busName, deadline);
  if (!owner.isGood()) return unknownFrom(owner, kBluez);
  const BusAnswer answer = system.call({owner.first().text().value_or(""),
                                        "/",
                                        "org.freedesktop.DBus.ObjectManager",
                                        "GetManagedObjects",
                                        {}},
                                       deadline);
  if (!answer.isGood()) return unknownFrom(answer, kBluez);
  return bluetoothFrom(answer.first());
}

}  // namespace wifi_profile::linux::bus
