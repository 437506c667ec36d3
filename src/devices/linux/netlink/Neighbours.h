// The kernel's neighbour table: other stations on a link (ARP, neighbour discovery), from
// rtnetlink. Any user.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "devices/linux/Deadline.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::linux::netlink {

enum class NeighbourState {
  unknown,    // no entry, or one that says nothing
  unproven,   // answered once, but not provably since the given time
  reachable,  // answered since then
  failed,     // does not answer
};

// Returns the state of a neighbour; only answers after `begin` count. Waits while the state is
// unproven, until the deadline. `address` is numeric.
NeighbourState awaitNeighbour(int interface, const std::string& address, Clock::time_point begin,
                              const Deadline& deadline);

// Pure version, from RTM_NEWNEIGH messages of all interfaces. Only answers no older than `oldest`
// count, because the kernel regards a neighbour as reachable for up to 45 s after its last answer.
NeighbourState neighbourStateOf(int interface, const std::string& address,
                                const std::vector<Message>& neighbours,
                                std::chrono::milliseconds oldest);

}  // namespace wifi_profile::linux::netlink
