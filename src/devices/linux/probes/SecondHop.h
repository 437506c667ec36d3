// The second hop towards the Internet.
#pragma once

#include <optional>
#include <string>

#include "devices/linux/Deadline.h"

namespace wifi_profile::linux::probes {

// Returns the address that reports that a packet with a time to live of two hops towards the
// target, a numeric IPv4 address, did not arrive.
std::optional<std::string> findSecondHop(const std::string& gateway, const std::string& target,
                                         const std::string& interface, const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
