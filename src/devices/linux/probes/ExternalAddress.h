// The network between the router and the Internet. See Ping.h for what all functions of this folder
// have in common.
#pragma once

#include <string>

#include "analysis/facts/ReachFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/probes/Names.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

// Asks the router for its outer address by NAT-PMP (1 s) and UPnP (discovery 1 s, then HTTP to the
// router's own address only, 3 s), and sends packets with a time to live of two hops towards
// `wanHost` (a look-up of 2 s, then 1.2 s), all at once. `gateway` is a numeric IPv4 address,
// `wanHost` a name or an address. Only the router's own answers count. If both protocols bring an
// address, NAT-PMP's is used unless it cannot be an outer address (for instance link-local or
// loopback). Without an interface in `route`, discovery asks only the router, not the multicast
// group. What is not found out stays unset. Error: failed, if the gateway is not an IPv4 address.
// Without an IPv4 address of `wanHost` only the second hop stays unset.
Result<facts::RouterOutside> routerOutside(const std::string& gateway, const std::string& wanHost,
                                           const Route& route, const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
