// The tasks that find out what can be reached.
#pragma once

#include <string>
#include <vector>

#include "devices/Targets.h"
#include "devices/linux/FactCollection.h"

namespace wifi_profile::linux {

// Adds the tasks that send packets through the interface, or through the interface that has its
// addresses (see Carrier). They run in parallel, after the link, the addresses and the profile were
// read. All but the one for the router's outer address also wait for the end of the scan, which
// takes the radio off its channel. Without a link or addresses they end at once.
void addProbeTasks(std::vector<FactTask>& tasks, const std::string& interface,
                   const devices::Targets& targets);

}  // namespace wifi_profile::linux
