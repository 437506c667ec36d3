// What the kernel knows of the other stations of a link (ARP, neighbour discovery), from rtnetlink.
// Any user.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "devices/linux/Patience.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

enum class NeighbourState {
  unknown,    // there is no entry, or one that says nothing
  unproven,   // it was there once, and there is no proof since the time asked about
  reachable,  // it answered since then
  failed,     // it does not answer
};

// The state, with answers since `begin`. Waits, up to the end of the patience, while it is
// unproven. `address` is numeric.
NeighbourState awaitNeighbour(int interface, const std::string& address, Clock::time_point begin,
                              const Patience& patience);

// The pure part: from the payloads of RTM_NEWNEIGH messages, of all interfaces.
// An answer counts that is no older than `oldest`: the kernel takes a neighbour for reachable for
// up to 45 s after its last answer.
NeighbourState neighbourStateOf(int interface, const std::string& address,
                                const std::vector<Message>& neighbours,
                                std::chrono::milliseconds oldest);

}  // namespace wifi_profile::machine
