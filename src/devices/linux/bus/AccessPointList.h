// The access points that NetworkManager lists: for users whom the kernel does not let scan, and
// after the kernel has forgotten what it heard. Pure functions; any thread.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "checks/AirFacts.h"
#include "devices/linux/bus/BusValue.h"

namespace wifi_profile::machine {

// From the properties of an access point, a{sv}. Marked as second-hand: it has address, name,
// signal (exact from -100 to -40 dBm), primary channel, security and age, and nothing else of what
// its frames say. `sinceBoot` is the time now by CLOCK_BOOTTIME. Nothing without a BSSID.
std::optional<checks::AccessPoint> accessPointFrom(const BusValue& properties,
                                                   std::chrono::nanoseconds sinceBoot);

// Adds those that the scan does not have. Those last heard longer ago than `oldest`, or never, are
// left out.
void addSecondHand(const std::vector<checks::AccessPoint>& listed, std::chrono::milliseconds oldest,
                   checks::Scan& scan);

}  // namespace wifi_profile::machine
