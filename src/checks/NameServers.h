// The name servers of the link beside those that the system asks. Pure functions; any thread.
#pragma once

#include <algorithm>

#include "checks/DeviceFacts.h"

namespace wifi_profile::checks {

// Whether the system asks name servers, and none of them is the link's, which may have none. NO
// where either are not known.
inline bool asksOthers(const Addresses& addresses) {
  const auto& own = addresses.dnsServers;
  const auto& asked = addresses.systemDnsServers;
  if (!own || !asked || asked->empty()) return false;
  return std::ranges::find_first_of(*asked, *own) == asked->end();
}

}  // namespace wifi_profile::checks
