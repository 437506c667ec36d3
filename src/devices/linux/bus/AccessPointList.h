// The access points that NetworkManager lists. They are used for users who may not scan, and after
// the kernel has removed its entries. Pure functions; any thread.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "devices/linux/bus/BusValue.h"

namespace wifi_profile::linux::bus {

// Parses the properties of an access point, a{sv}. The result is marked as second-hand: it has
// address, name, signal (exact from -100 to -40 dBm), primary channel, security and age, and no
// other data of the access point's frames. `sinceBoot` is the current time of CLOCK_BOOTTIME. Empty
// without a BSSID.
std::optional<facts::AccessPoint> accessPointFrom(const BusValue& properties,
                                                  std::chrono::nanoseconds sinceBoot);

// Adds the listed access points that the scan lacks, except those of unknown age or last heard
// longer ago than `oldest`.
void addSecondHand(const std::vector<facts::AccessPoint>& listed, std::chrono::milliseconds oldest,
                   facts::Scan& scan);

}  // namespace wifi_profile::linux::bus
