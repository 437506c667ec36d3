// The interface that has the addresses of a link, from rtnetlink. Any user.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/netlink/Socket.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::netlink {

// A member of a bond, team or bridge that sends instead of the link, or in addition to it.
struct OtherMember {
  std::string name;
  std::string master;        // the bond, team or bridge
  std::string memberOfLink;  // the member that is or contains the link's
  bool sendsAlone = false;   // the bond sends through its active member only

  bool operator==(const OtherMember&) const = default;
};

// The interface that has the addresses, routes and neighbours of a link: the link's own interface,
// or the bond, team or bridge that it is a member of.
struct Carrier {
  int index = 0;
  std::string name;
  std::optional<OtherMember> otherMember = std::nullopt;  // of the master nearest to the link

  bool operator==(const Carrier&) const = default;
};

// Reads the carrier of a link. noHardware: there is no interface of that number.
Result<Carrier> readCarrier(int interface, const Deadline& deadline);

// Pure version, from RTM_NEWLINK messages of all interfaces. Any thread.
std::optional<Carrier> carrierOf(int interface, const std::vector<Message>& links);

// Explains why the addresses are unknown when another member sends.
Error sentByAnother(const OtherMember& other);

// Returns the number of the interface through which packets to this numeric address leave. Empty:
// there is no route, or the kernel does not answer.
std::optional<int> interfaceTowards(const std::string& address, const Deadline& deadline);

// Describes the interface of this number; empty if the kernel does not answer.
std::optional<facts::OtherInterface> readOtherInterface(int interface, const Deadline& deadline);

// Pure version, from an RTM_NEWLINK message. An interface that does not send Ethernet frames, or
// that a program serves (tun and tap), counts as a tunnel.
std::optional<facts::OtherInterface> otherInterfaceOf(const Message& link);

// Returns the name of the interface through which packets to the Internet leave, such as a tunnel
// or a cable, if packets of neither IP version leave through this one. Empty: packets of one IP
// version do, or there is no route to the Internet.
std::optional<std::string> otherWayOut(int interface, const Deadline& deadline);

// Pure version: returns the number of that interface. `ways` holds the interface through which
// packets of each IP version leave; empty: no route. It is enough if one version leaves through
// this interface: IPv4 that is translated over an IPv6-only link leaves through a device of its
// own, but the resulting IPv6 packets leave through the link.
std::optional<int> otherWayOut(int interface, const std::vector<std::optional<int>>& ways);

}  // namespace wifi_profile::linux::netlink
