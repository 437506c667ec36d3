// Compares the name servers of the link with those that the system uses. Pure functions; any
// thread.
#pragma once

#include <algorithm>

#include "analysis/facts/DeviceFacts.h"

namespace wifi_profile::facts {

// True if the system uses name servers and none of them is one of the link's, which may have none.
// False if either list is unknown.
inline bool asksOthers(const Addresses& addresses) {
  const auto& own = addresses.dnsServers;
  const auto& asked = addresses.systemDnsServers;
  if (!own || !asked || asked->empty()) return false;
  return std::ranges::find_first_of(*asked, *own) == asked->end();
}

}  // namespace wifi_profile::facts
