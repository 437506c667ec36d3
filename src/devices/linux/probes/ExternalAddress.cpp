#include "devices/linux/probes/ExternalAddress.h"

#include "analysis/facts/IpAddresses.h"
#include "devices/linux/Workers.h"
#include "devices/linux/probes/NatPmp.h"
#include "devices/linux/probes/RouterAnswers.h"
#include "devices/linux/probes/SecondHop.h"
#include "devices/linux/probes/Sockets.h"
#include "devices/linux/probes/Upnp.h"

namespace wifi_profile::linux::probes {

namespace {

constexpr std::chrono::milliseconds kNameTime{2000};

// Whether the address is one that a router may have towards the Internet.
bool isOutside(const std::optional<std::string>& address) {
  const auto kind = address ? facts::ipv4KindOf(*address) : std::nullopt;
  return kind && (*kind == facts::Ipv4Kind::global || facts::isBehindTranslation(*kind));
}

std::optional<std::string> secondHopTo(const std::string& host, const std::string& gateway,
                                       const Route& route, const Deadline& deadline) {
  const auto answer = resolve(host, route, deadline.atMost(kNameTime));
  // IPv4 addresses come first.
  if (!answer || answer->addresses.empty()) return {};
  return findSecondHop(gateway, answer->addresses.front(), route.interface, deadline);
}

}  // namespace

Result<facts::RouterOutside> routerOutside(const std::string& gateway, const std::string& wanHost,
                                           const Route& route, const Deadline& deadline) {
  if (deadline.isOver()) return cancelled();
  const auto router = hostAddress(gateway);
  if (!router) {
    return Error{Reason::failed, '"' + shortText(gateway) +
                                     "\" is no IPv4 address of a router: renew the address (join "
                                     "again), or look at the router's DHCP settings."};
  }
  facts::RouterOutside outside;
  Alongside byNatPmp([&] { return askNatPmp(*router, route.interface, deadline); });
  Alongside byUpnp([&] { return askUpnp(*router, route.interface, deadline); });
  outside.secondHop = secondHopTo(wanHost, *router, route, deadline);
  outside.address = byNatPmp.get();
  const auto other = byUpnp.get();
  if (!isOutside(outside.address) && other) outside.address = other;
  if (deadline.isCancelled()) return cancelled();
  return outside;
}

}  // namespace wifi_profile::linux::probes
