// Whether an address answers, and how fast.
//
// All functions of this folder: any thread, several at once; no exception leaves them; any user may
// call them. They end at the deadline of `deadline`, and within 50 ms of being cancelled. The
// result is unknown (tookTooLong) if the work was cancelled or had no time left when it began. If
// it had its time and got no answer, the result is known, and says so. `interface` is the name of
// the interface that all packets use; empty: the system's routes decide.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/facts/ReachFacts.h"
#include "devices/linux/Deadline.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

struct PingPlan {
  int count = 3;
  std::chrono::milliseconds interval{100};  // between the beginnings of two pings
  std::chrono::milliseconds time{4000};     // in total; less if all answers arrive
  // TCP ports. All are tried until one answers, with a connection or a refusal; later pings use
  // that one.
  std::vector<std::uint16_t> ports = {443, 80, 53};
  // How long to wait afterwards for the kernel to find out whether a target on the link is there:
  // it probes an old neighbour again after 5 s.
  bool isOnLink = false;
  std::chrono::milliseconds neighbourTime{2500};
};

// Sends ICMP or ICMPv6 echoes to `target`, a numeric address of IPv4 or IPv6, including "fe80::1"
// of the interface. Only answers with this call's own random bytes count, each once.
//
// If not all echoes were answered after 1 s, or the user may not send echoes, also makes TCP
// connections. They count if no echo was answered. A lost packet is a lost answer there, too,
// unless all answers take more than 1 s, after which the kernel repeats the packet.
//
// Without an answer, `isNeighbour` says whether a target on the link answered the kernel (ARP,
// neighbour discovery) after the pings began. A ping without route or neighbour counts as sent and
// not answered. Error: failed, if the target is not an address or no socket could be bound to the
// interface.
Result<facts::Pings> ping(const std::string& target, const std::string& interface,
                          const PingPlan& plan, const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
