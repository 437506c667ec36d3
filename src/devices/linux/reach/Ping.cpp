#include "devices/linux/reach/Ping.h"

#include <cerrno>

#include "devices/linux/reach/Echoes.h"

namespace wifi_profile::machine {
namespace {

constexpr double kReferenceDate = 978307200;  // 2001-01-01, in seconds of the system's clock

Date now() {
  const std::chrono::duration<double> sinceEpoch =
      std::chrono::system_clock::now().time_since_epoch();
  return {sinceEpoch.count() - kReferenceDate};
}

checks::Unknown failed(std::string sentence) {
  return {checks::Reason::failed, std::move(sentence)};
}

}  // namespace

checks::Known<checks::Pings> ping(const std::string& target, const std::string& interface,
                                  const PingPlan& plan, const Patience& patience) {
  const auto address = addressOf(target, 0, interface);
  if (!address)
    return failed('"' + shortText(target) +
                  "\" is no address to ping: set a numeric one, or a name.");
  const Patience ours = patience.atMost(plan.time);
  if (ours.isOver()) return calledOff();

  checks::Pings pings;
  pings.target = target;
  pings.started = now();
  std::optional<RoundTrips> roundTrips;
  if (const EchoSocket socket(address->family(), interface); socket) {
    roundTrips = echo(socket, *address, plan, ours);
  } else if (errno == EACCES || errno == EPERM) {
    pings.byConnecting = true;
    roundTrips = pingByConnecting(target, interface, plan, ours);
  }
  if (!roundTrips) {
    return failed("No socket could be opened" +
                  (interface.empty() ? "" : " on " + shortText(interface)) +
                  ": look whether the interface is still there and has an address of this "
                  "protocol (IPv4 or IPv6).");
  }
  if (patience.cancellation.isCancelled()) return calledOff();
  pings.sent = static_cast<int>(roundTrips->size());
  for (const auto& roundTrip : *roundTrips) {
    if (roundTrip) pings.answers.push_back(*roundTrip);
  }
  return pings;
}

}  // namespace wifi_profile::machine
