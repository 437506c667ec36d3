// What stands between the router and the Internet. See Ping.h for what all functions of this folder
// have in common.
#pragma once

#include <string>

#include "checks/Known.h"
#include "checks/ReachFacts.h"
#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

// Asks the router for its outer address by NAT-PMP (1.5 s) and UPnP (discovery 1 s, then HTTP to
// the router's own address only, 3 s), and sends packets that live for two hops towards `wanTarget`
// (2 s), all at once. Both are numeric IPv4 addresses. Only the router's own answers are believed.
// With an empty interface nothing is sent to the discovery's group, so UPnP is left out. What is
// not found out is left unset, both if need be. Unknown: failed, when the gateway is no IPv4
// address; an empty or IPv6 `wanTarget` only leaves the second hop out.
checks::Known<checks::RouterOutside> routerOutside(const std::string& gateway,
                                                   const std::string& wanTarget,
                                                   const std::string& interface,
                                                   const Patience& patience);

}  // namespace wifi_profile::machine
