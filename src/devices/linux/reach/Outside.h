// What stands between the router and the Internet. See Ping.h for what all functions of this folder
// have in common.
#pragma once

#include <string>

#include "checks/Known.h"
#include "checks/ReachFacts.h"
#include "devices/linux/Patience.h"
#include "devices/linux/reach/Names.h"

namespace wifi_profile::machine {

// Asks the router for its outer address by NAT-PMP (1 s) and UPnP (discovery 1 s, then HTTP to
// the router's own address only, 3 s), and sends packets that live for two hops towards `wanHost`
// (a look-up of 2 s, then 1.2 s), all at once. `gateway` is a numeric IPv4 address, `wanHost` a
// name or an address. Only the router's own answers are believed; where both protocols bring an
// address, NAT-PMP's counts unless it is one that says nothing of the outside (link-local,
// loopback). Without an interface in `way` nothing is sent to the discovery's group, only to the
// router. What is not found out is left unset, both if need be. Unknown: failed, when the gateway
// is no IPv4 address; without an IPv4 address of `wanHost` only the second hop is left out.
checks::Known<checks::RouterOutside> routerOutside(const std::string& gateway,
                                                   const std::string& wanHost, const Way& way,
                                                   const Patience& patience);

}  // namespace wifi_profile::machine
