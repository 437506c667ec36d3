// The interface that carries the addresses of a link, from rtnetlink. Any user.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

// The link's own interface; where that is a member of a bond, a team or a bridge, that one, which
// then has the addresses, the routes and the neighbours.
struct Carrier {
  int index = 0;
  std::string name;
  // The member of the bond that sends in the place of the link, or beside it.
  std::optional<std::string> otherMember = std::nullopt;

  bool operator==(const Carrier&) const = default;
};

// noHardware: there is no interface of that number.
checks::Known<Carrier> readCarrier(int interface, const Patience& patience);

// The pure part: from the payloads of RTM_NEWLINK messages, of all interfaces. Any thread.
std::optional<Carrier> carrierOf(int interface, const std::vector<Message>& links);

// The number of the interface that packets to this numeric address leave by; empty: there is no
// route, or the kernel does not tell.
std::optional<int> interfaceTowards(const std::string& address, const Patience& patience);

// The name of the interface that packets to the Internet leave by where it is not this one, such as
// a tunnel or a cable. Empty: it is, or there is none.
std::optional<std::string> otherWayOut(int interface, const Patience& patience);

}  // namespace wifi_profile::machine
