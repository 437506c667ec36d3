// Whether an address answers, and how fast.
//
// All functions of this folder: any thread, several at once; no exception leaves them; any user may
// call them. They end at the deadline of `patience`, and within 50 ms of being called off. What was
// called off, or had no time left when it began, is unknown (tookTooLong); what had its time and
// got no answer is known, and says so. `interface` is the name of the interface that everything
// goes through; empty: as the system routes.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "checks/Known.h"
#include "checks/ReachFacts.h"
#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

struct PingPlan {
  int count = 3;
  std::chrono::milliseconds interval{100};  // between the beginnings of two
  std::chrono::milliseconds time{4000};     // in all; it ends sooner when every answer is there
  // TCP ports. All are tried until one gave an answer, which is a connection or its refusal.
  std::vector<std::uint16_t> ports = {443, 80, 53};
  // After the time, how long the kernel is given to find out whether a target on the link is there:
  // it asks an old neighbour anew after 5 s.
  bool isOnLink = false;
  std::chrono::milliseconds neighbourTime{2500};
};

// ICMP or ICMPv6 echoes to `target`, a numeric address of IPv4 or IPv6, "fe80::1" of the interface
// included. Only answers that carry this call's own random bytes count, each once. Where not all of
// them were answered after 1 s, or the user may send none, connections as well, which count when no
// echo was answered: a lost packet is a lost answer there, too, unless all answers take more than
// 1 s, after which the kernel repeats it. Without an answer, `isNeighbour` says whether a target on
// the link answered the kernel (ARP, neighbour discovery) after the pings began. No route and no
// neighbour: sent, without an answer. Unknown: failed, when the target is no address, or no socket
// could be bound to the interface.
checks::Known<checks::Pings> ping(const std::string& target, const std::string& interface,
                                  const PingPlan& plan, const Patience& patience);

}  // namespace wifi_profile::machine
