// What the kernel knows of the other stations of a link (ARP, neighbour discovery), from rtnetlink.
// Any user.
#pragma once

#include <string>
#include <vector>

#include "devices/linux/Patience.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

enum class NeighbourState {
  unknown,    // there is no entry, or one that says nothing
  unproven,   // it was there once, and the kernel is about to ask again
  reachable,  // it answered a short time ago
  failed,     // it does not answer
};

// Waits, up to the end of the patience, while the state is unproven. `address` is numeric.
NeighbourState awaitNeighbour(int interface, const std::string& address, const Patience& patience);

// The pure part: from the payloads of RTM_NEWNEIGH messages, of all interfaces.
NeighbourState neighbourStateOf(int interface, const std::string& address,
                                const std::vector<Message>& neighbours);

}  // namespace wifi_profile::machine
