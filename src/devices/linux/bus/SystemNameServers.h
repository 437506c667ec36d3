// The name servers that the system asks: those of resolv.conf, and where that names
// systemd-resolved, its own. Any thread.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devices/linux/bus/Bus.h"

namespace wifi_profile::machine {

// Those of the system's servers that are the link's: `isOfLink` says so of its router and its
// neighbours, also where a cable leads to the same network; or the packets leave by the link, as
// `towards` tells by the number of an interface; or no route leads there. Empty where there are
// none, such as with a tunnel: the link's own are not known then. Pure.
std::optional<std::vector<std::string>> nameServersThrough(
    int interface, std::vector<std::string> servers,
    const std::function<bool(const std::string& server)>& isOfLink,
    const std::function<std::optional<int>(const std::string& server)>& towards);

// Empty where there are none, or where it is not known which servers those are that a resolver on
// this machine asks in its turn. `interface`: number of the link.
std::optional<std::vector<std::string>> readSystemNameServers(
    Bus& system, int interface, const Patience& patience,
    const std::string& resolvConf = "/etc/resolv.conf");

// The pure parts: numeric addresses without those that are local to a link.
std::vector<std::string> nameServersIn(std::string_view resolvConf);
// From the property DNS of org.freedesktop.resolve1.Manager: the link's, and those of all links.
std::vector<std::string> nameServersOf(int interface, const BusValue& servers);

}  // namespace wifi_profile::machine
