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

// The name of the interface that packets to the Internet leave by where it is not this one, such as
// a tunnel or a cable. Empty: packets leave by this interface, or have no route.
std::optional<std::string> otherWayOut(int interface, const Patience& patience);

}  // namespace wifi_profile::machine
