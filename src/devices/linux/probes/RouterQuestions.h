// The parts of routerOutside(), each with a time limit of its own. Addresses are numeric IPv4
// addresses.
#pragma once

#include <optional>
#include <string>

#include "devices/linux/Deadline.h"

namespace wifi_profile::linux::probes {

// Asks the router for its outer address; only a unicast address counts.
std::optional<std::string> askNatPmp(const std::string& gateway, const std::string& interface,
                                     const Deadline& deadline);
std::optional<std::string> askUpnp(const std::string& gateway, const std::string& interface,
                                   const Deadline& deadline);

// Returns the address that reports that a packet with a time to live of two hops towards the target
// did not arrive.
std::optional<std::string> findSecondHop(const std::string& gateway, const std::string& target,
                                         const std::string& interface, const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
