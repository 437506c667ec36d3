// A router's external address by UPnP.
#pragma once

#include <optional>
#include <string>

#include "devices/linux/Deadline.h"

namespace wifi_profile::linux::probes {

// Asks the router, a numeric IPv4 address: discovery for at most 1 s, then HTTP for at most 3 s.
// Only a unicast address counts.
std::optional<std::string> askUpnp(const std::string& gateway, const std::string& interface,
                                   const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
