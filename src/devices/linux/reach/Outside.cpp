#include "devices/linux/reach/Outside.h"

#include <future>
#include <system_error>

#include "devices/linux/reach/RouterQuestions.h"
#include "devices/linux/reach/Sockets.h"

namespace wifi_profile::machine {

checks::Known<checks::RouterOutside> routerOutside(const std::string& gateway,
                                                   const std::string& wanTarget,
                                                   const std::string& interface,
                                                   const Patience& patience) {
  if (patience.isOver()) return calledOff();
  const auto router = hostAddress(gateway);
  if (!router) {
    return checks::Unknown{checks::Reason::failed,
                           "\"" + shortText(gateway) + "\" is no IPv4 address of a router."};
  }
  checks::RouterOutside outside;
  try {
    auto byNatPmp =
        std::async(std::launch::async, [&] { return askNatPmp(*router, interface, patience); });
    auto byUpnp =
        std::async(std::launch::async, [&] { return askUpnp(*router, interface, patience); });
    outside.secondHop = findSecondHop(*router, wanTarget, interface, patience);
    outside.address = byNatPmp.get();
    const auto other = byUpnp.get();
    if (!outside.address) outside.address = other;
  } catch (const std::system_error&) {
    return checks::Unknown{checks::Reason::failed, "The system has no threads left."};
  }
  if (patience.cancellation.isCancelled()) return calledOff();
  return outside;
}

}  // namespace wifi_profile::machine
