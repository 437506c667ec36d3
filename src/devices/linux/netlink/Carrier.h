// The interface that carries the addresses of a link, from rtnetlink. Any user.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

// A member of a bond, a team or a bridge that sends instead of the link, or beside it.
struct OtherMember {
  std::string name;
  std::string master;        // the bond, the team or the bridge
  std::string memberOfLink;  // the member of the same master that is the link's, or has it
  bool sendsAlone = false;   // of a bond that sends through its active member only

  bool operator==(const OtherMember&) const = default;
};

// The link's own interface; where that is a member of a bond, a team or a bridge, that one, which
// then has the addresses, the routes and the neighbours.
struct Carrier {
  int index = 0;
  std::string name;
  std::optional<OtherMember> otherMember = std::nullopt;  // the one nearest to the link

  bool operator==(const Carrier&) const = default;
};

// noHardware: there is no interface of that number.
checks::Known<Carrier> readCarrier(int interface, const Patience& patience);

// The pure part: from the payloads of RTM_NEWLINK messages, of all interfaces. Any thread.
std::optional<Carrier> carrierOf(int interface, const std::vector<Message>& links);

// Why the addresses are not known where another member sends.
checks::Unknown sentByAnother(const OtherMember& other);

// The number of the interface that packets to this numeric address leave by; empty: there is no
// route, or the kernel does not tell.
std::optional<int> interfaceTowards(const std::string& address, const Patience& patience);

// What the interface of that number is, where the kernel tells.
std::optional<checks::OtherInterface> readOtherInterface(int interface, const Patience& patience);

// The pure part: from the payload of an RTM_NEWLINK message. What does not send Ethernet frames,
// and what a program serves (tun and tap), is taken for a tunnel.
std::optional<checks::OtherInterface> otherInterfaceOf(const Message& link);

// The name of the interface that packets to the Internet leave by where those of neither protocol
// leave by this one, such as a tunnel or a cable. Empty: one of them does, or there is no way out.
std::optional<std::string> otherWayOut(int interface, const Patience& patience);

// The pure part: the number of that interface, from those that packets of each protocol leave by;
// empty: there is no route. Translated IPv4 over an IPv6-only link leaves by a device of its own,
// and the IPv6 packets that it becomes leave by the link.
std::optional<int> otherWayOut(int interface, const std::vector<std::optional<int>>& ways);

}  // namespace wifi_profile::machine
