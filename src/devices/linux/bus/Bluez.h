// Bluetooth adapters and devices, from BlueZ.
#pragma once

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::machine {

// Counts devices in the answer of ObjectManager.GetManagedObjects. noHardware: there is no adapter.
// failed: the answer has no objects. Pure.
checks::Known<checks::Bluetooth> bluetoothFrom(const BusValue& objects);

// Asks BlueZ. noService: BlueZ is not running, or there is no bus. Any thread.
checks::Known<checks::Bluetooth> readBluetooth(Bus& system, const Patience& patience);

}  // namespace wifi_profile::machine
