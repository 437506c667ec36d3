// The parts of routerOutside(), each with a time of its own. IPv4 addresses, numeric.
#pragma once

#include <optional>
#include <string>

#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

// The outer address that the router tells; only a unicast address counts.
std::optional<std::string> askNatPmp(const std::string& gateway, const std::string& interface,
                                     const Patience& patience);
std::optional<std::string> askUpnp(const std::string& gateway, const std::string& interface,
                                   const Patience& patience);

// Who says that a packet of two hops towards the target did not live long enough.
std::optional<std::string> findSecondHop(const std::string& gateway, const std::string& target,
                                         const std::string& interface, const Patience& patience);

}  // namespace wifi_profile::machine
