// Bluetooth adapters and devices, from BlueZ.
#pragma once

#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/bus/Bus.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::bus {

// Counts devices in the answer of ObjectManager.GetManagedObjects. noHardware: there is no adapter.
// failed: the answer has no objects. Pure.
Result<facts::Bluetooth> bluetoothFrom(const BusValue& objects);

// Asks BlueZ. noService: BlueZ is not running, or there is no bus. Any thread.
Result<facts::Bluetooth> readBluetooth(Bus& system, const Deadline& deadline);

}  // namespace wifi_profile::linux::bus
