// Looks names up. See Ping.h for what all functions of this folder have in common.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/ReachFacts.h"
#include "devices/linux/Deadline.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

// How requests leave this machine.
struct Route {
  std::string interface = {};  // empty: the system's routes decide
  // The link's name servers: "address", "address:port" or "[address]:port"; an IPv6 address may
  // have a "%zone". At most four are used. A server on this machine is used, without the interface,
  // only if there is no other. Unset: the servers that the system has configured.
  std::optional<std::vector<std::string>> nameServers = {};
  // Whether the system's routes decide how to reach these servers, for instance because they are
  // behind a tunnel.
  bool asksAsSystem = false;
  // How long to wait for one answer of a name server, and for a connection with its TLS handshake.
  std::chrono::milliseconds nameTryTime{2000};
  std::chrono::milliseconds connectTime{5000};
};

struct NameAnswer {
  facts::NameResolution resolution;
  std::vector<std::string> addresses;  // numeric, at most 16, IPv4 first
};

// Queries the servers for A and AAAA. Each server is tried twice, for 2 s (so one dead server takes
// 4 s), all of them together for 8 s. Ends 300 ms after one of the two brought addresses. Ignores
// hosts files, search lists and aliases. A numeric address is its own answer. Problems: "no such
// name", "no address of this name", "timed out", "refused", "server failed", "malformed answer",
// "no name server", "malformed name"; and, if an interface is named, "blocked: ..." if all
// addresses are ones that no site can have (loopback, unspecified, link-local, multicast,
// broadcast). Such addresses are left out. Error: failed, if the resolver cannot be set up.
Result<NameAnswer> resolve(const std::string& name, const Route& route, const Deadline& deadline);

// As `resolve`, but with the system's servers, as the system routes. Addresses that no site can
// have are left out.
Result<NameAnswer> resolveAsSystem(const std::string& name, const std::vector<std::string>& servers,
                                   const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
