// Bluetooth adapters and devices, from BlueZ.
#pragma once

#include "analysis/facts/DeviceFacts.h"
#include "analysis/facts/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::linux::bus {

// Counts devices in the answer of ObjectManager.GetManagedObjects. noHardware: there is no adapter.
// failed: the answer has no objects. Pure.
facts::Known<facts::Bluetooth> bluetoothFrom(const BusValue& objects);

// Asks BlueZ. noService: BlueZ is not running, or there is no bus. Any thread.
facts::Known<facts::Bluetooth> readBluetooth(Bus& system, const Patience& patience);

}  // namespace wifi_profile::linux::bus
