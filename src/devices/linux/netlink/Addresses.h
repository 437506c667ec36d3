// Addresses and gateways of a network interface, from rtnetlink. Any user.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/netlink/Carrier.h"
#include "devices/linux/netlink/Socket.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::netlink {

// Returns the interface's usable addresses (not tentative, failed or deprecated ones), those of
// wide scope first, and for each IP version the gateway of the default route of lowest metric over
// this interface. Routes of the main table come before those of other tables. `dnsServers` stays
// unset: the kernel does not know the name servers. An interface without addresses has empty lists.
// noHardware: there is no interface of that number.
Result<facts::Addresses> readAddresses(int interface, const Deadline& deadline);

// Returns the addresses of the link, which belong to its carrier. Error if the carrier is unknown
// or another member of it sends.
Result<facts::Addresses> readAddressesOfLink(const Result<Carrier>& carrier,
                                             const Deadline& deadline);

// Whether a numeric address lies in a subnet of the interface's own addresses. False if the kernel
// does not answer.
bool isInOwnSubnet(int interface, const std::string& address, const Deadline& deadline);

// Pure versions of the above, from RTM_NEWADDR and RTM_NEWROUTE messages of all interfaces. Any
// thread.
facts::Addresses addressesOf(int interface, const std::vector<Message>& addresses,
                             const std::vector<Message>& routes);
bool isInOwnSubnet(int interface, const std::string& address,
                   const std::vector<Message>& addresses);

}  // namespace wifi_profile::linux::netlink
