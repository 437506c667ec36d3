// Addresses and gateways of a network interface, from rtnetlink. Any user.
#pragma once

#include <optional>
#include <string>
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

// Whether a numeric address lies in a subnet of the interface's own addresses. NO where the kernel
// does not tell.
bool isInOwnSubnet(int interface, const std::string& address, const Patience& patience);

// The pure parts: the payloads of RTM_NEWADDR and RTM_NEWROUTE messages, of all interfaces. Any
// thread.
checks::Addresses addressesOf(int interface, const std::vector<Message>& addresses,
                              const std::vector<Message>& routes);
bool isInOwnSubnet(int interface, const std::string& address,
                   const std::vector<Message>& addresses);

}  // namespace wifi_profile::machine
