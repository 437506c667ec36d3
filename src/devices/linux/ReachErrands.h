// How it is found out what can be reached.
#pragma once

#include <string>
#include <vector>

#include "devices/linux/Gathering.h"
#include "devices/linux/Targets.h"

namespace wifi_profile::machine {

// Adds the errands that send something through the interface, or through what carries its
// addresses. They begin when the link, the addresses and the profile were read, and run side by
// side. All but the look at the router's outside also wait for the end of the scan, which takes the
// radio off its channel. Without a link or addresses they end at once.
void addReachErrands(std::vector<Errand>& errands, const std::string& interface,
                     const Targets& targets);

}  // namespace wifi_profile::machine
