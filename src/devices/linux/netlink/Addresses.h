// Addresses and gateways of a network interface, from rtnetlink. Any user.
#pragma once

#include <optional>
#include <vector>

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/netlink/Carrier.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

// The interface's addresses that can be used now (not tentative, failed or deprecated ones), those
// of wide scope first, and of each IP version the default gateway of lowest metric over this very
// interface, in the main table of routes if it has one. `dnsServers` stays unset: the kernel does
// not know them. An interface without addresses has empty lists; noHardware: there is no interface
// of that number.
checks::Known<checks::Addresses> readAddresses(int interface, const Patience& patience);

// Those of the link, which its carrier has. Not known where the carrier is not known, or another
// member of it sends.
checks::Known<checks::Addresses> readAddressesOfLink(const checks::Known<Carrier>& carrier,
                                                     const Patience& patience);

// The pure part: the payloads of RTM_NEWADDR and RTM_NEWROUTE messages, of all interfaces. Any
// thread.
checks::Addresses addressesOf(int interface, const std::vector<Message>& addresses,
                              const std::vector<Message>& routes);

}  // namespace wifi_profile::machine
