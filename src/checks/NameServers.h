// The name servers of the link beside those that the system asks. Pure functions; any thread.
#pragma once

#include <algorithm>

#include "checks/DeviceFacts.h"

namespace wifi_profile::checks {

// Whether the system asks none of the link's own name servers. NO where either are not known.
inline bool asksOthers(const Addresses& addresses) {
  const auto& own = addresses.dnsServers;
  const auto& asked = addresses.systemDnsServers;
  if (!own || own->empty() || !asked || asked->empty()) return false;
  return std::ranges::find_first_of(*asked, *own) == asked->end();
}

}  // namespace wifi_profile::checks
