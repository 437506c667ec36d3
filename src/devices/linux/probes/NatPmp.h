// A router's external address by NAT-PMP.
#pragma once

#include <optional>
#include <string>

#include "devices/linux/Deadline.h"

namespace wifi_profile::linux::probes {

// Asks the router, a numeric IPv4 address, for at most 1 s. Only a unicast address counts.
std::optional<std::string> askNatPmp(const std::string& gateway, const std::string& interface,
                                     const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
