// Bluetooth, as BlueZ tells it.
#pragma once

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::machine {

// noHardware where there is no adapter; failed where there are no objects at all. Pure; `objects`
// is ObjectManager.GetManagedObjects.
checks::Known<checks::Bluetooth> bluetoothFrom(const BusValue& objects);

// noService where BlueZ is not running or there is no bus. Any thread.
checks::Known<checks::Bluetooth> readBluetooth(Bus& system, const Patience& patience);

}  // namespace wifi_profile::machine
