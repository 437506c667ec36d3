// Names asked of name servers. See Ping.h for what all functions of this folder have in common.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/Known.h"
#include "checks/ReachFacts.h"
#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

// The way that questions go out.
struct Way {
  std::string interface;  // empty: as the system routes
  // The link's name servers: "address", "address:port" or "[address]:port"; an IPv6 address may
  // have a "%zone". No more than four are asked. One on this machine is asked, without the
  // interface, only where there is no other. Unset: those that the system has configured.
  std::optional<std::vector<std::string>> nameServers;
  // Whether these are asked as the system routes, such as those behind a tunnel.
  bool asksAsSystem = false;
};

struct NameAnswer {
  checks::NameResolution resolution;
  std::vector<std::string> addresses;  // numeric, no more than 16, those of IPv4 first
};

// Asks the servers for A and AAAA. Each is tried twice, for 2 s (so one dead server takes 4 s),
// all of them for 8 s. Ends 300 ms after one of the two brought addresses. No file of
// hosts, search list or alias is looked at. An address stands for itself. Problems: "no such name",
// "no address of this name", "timed out", "refused", "server failed", "malformed answer", "no name
// server", "malformed name"; where an interface is named, "blocked: ..." for addresses that no site
// can have (loopback, none, link-local, a group, broadcast), which are left out. Unknown: failed,
// when the resolver cannot be set up.
checks::Known<NameAnswer> resolve(const std::string& name, const Way& way,
                                  const Patience& patience);

// As `resolve`, of the servers that the system asks, as the system routes. Addresses that no site
// can have are left out.
checks::Known<NameAnswer> resolveAsSystem(const std::string& name,
                                          const std::vector<std::string>& servers,
                                          const Patience& patience);

}  // namespace wifi_profile::machine
