// The system's name servers: those of resolv.conf or, if that names systemd-resolved, the latter's.
// Any thread.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devices/linux/bus/Bus.h"

namespace wifi_profile::linux::bus {

// Returns those of the system's servers that belong to the link: servers for which `isOfLink` is
// true (the router and neighbours, even if a cable leads to the same network), servers whose
// packets leave through the link (`towards` returns the number of the interface), and servers
// without a route. Empty: there is no such server, for instance with a tunnel; the link's own
// servers are then unknown. Pure.
std::optional<std::vector<std::string>> nameServersThrough(
    int interface, std::vector<std::string> servers,
    const std::function<bool(const std::string& server)>& isOfLink,
    const std::function<std::optional<int>(const std::string& server)>& towards);

// Reads the system's servers. Empty: there are none, or a resolver on this machine does not tell
// which servers it forwards to. `interface` is the number of the link.
std::optional<std::vector<std::string>> readSystemNameServers(
    Bus& system, int interface, const Deadline& deadline,
    const std::string& resolvConf = "/etc/resolv.conf");

// Pure versions: numeric addresses, without link-local IPv6 ones.
std::vector<std::string> nameServersIn(std::string_view resolvConf);
// From the property DNS of org.freedesktop.resolve1.Manager: servers of the link and servers of no
// particular link.
std::vector<std::string> nameServersOf(int interface, const BusValue& servers);

}  // namespace wifi_profile::linux::bus
