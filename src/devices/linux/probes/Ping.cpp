#include "devices/linux/probes/Ping.h"

#include <algorithm>
#include <cerrno>
#include <future>
#include <net/if.h>
#include <poll.h>
#include <system_error>

#include "devices/linux/netlink/Neighbours.h"
#include "devices/linux/probes/Echoes.h"

namespace wifi_profile::linux::probes {
namespace {

// How long to wait for echoes before making connections.
constexpr std::chrono::milliseconds kEchoesAlone{1000};

constexpr double kReferenceDate = 978307200;  // 2001-01-01, in seconds of the system's clock

Date now() {
  const std::chrono::duration<double> sinceEpoch =
      std::chrono::system_clock::now().time_since_epoch();
  return {sinceEpoch.count() - kReferenceDate};
}

// The results of both kinds of ping.
struct Both {
  std::optional<RoundTrips> echoes;       // empty: the user may not send echoes
  std::optional<RoundTrips> connections;  // empty: not needed, or no socket
  int error = 0;                          // errno's number if no socket could be opened
};

bool anyAnswered(const std::optional<RoundTrips>& roundTrips) {
  return roundTrips &&
         std::ranges::any_of(*roundTrips, [](const auto& roundTrip) { return bool(roundTrip); });
}

// Ends the other thread, also if the next one cannot be started.
struct CancelAtEnd {
  explicit CancelAtEnd(Cancellation& one) : cancellation(one) {}
  ~CancelAtEnd() { cancellation.cancel(); }
  CancelAtEnd(const CancelAtEnd&) = delete;
  CancelAtEnd& operator=(const CancelAtEnd&) = delete;
  Cancellation& cancellation;
};

// Sends the echoes and, after kEchoesAlone, also makes connections. Ends when all echoes are
// answered, or when the connections have finished and any of them was answered.
Both pingBothWays(const std::string& target, const Address& address, const std::string& interface,
                  const PingPlan& plan, const Patience& patience) {
  Both both;
  const EchoSocket socket(address.family(), interface);
  const bool mayEcho = bool(socket);
  if (!mayEcho && errno != EACCES && errno != EPERM) {
    both.error = errno;
    return both;
  }
  Cancellation enough;
  const Patience ours{patience.deadline, enough};
  auto connecting = std::async(std::launch::async, [&] {
    if (mayEcho && waitFor(-1, 0, ours.atMost(kEchoesAlone)) == Waited::cancelled) return;
    both.connections = pingByConnecting(target, interface, plan, ours);
    if (!both.connections) both.error = errno;
    if (!mayEcho || anyAnswered(both.connections)) enough.cancel();
  });
  const CancelAtEnd atEnd(enough);
  auto echoing = std::async(std::launch::async, [&] {
    if (!mayEcho) return;
    both.echoes = echo(socket, address, plan, ours);
    if (!ours.isOver()) enough.cancel();
  });
  waitFor(enough.descriptor(), POLLIN, patience);
  enough.cancel();
  connecting.get();
  echoing.get();
  return both;
}

}  // namespace

Result<facts::Pings> ping(const std::string& target, const std::string& interface,
                          const PingPlan& plan, const Patience& patience) {
  const auto address = addressOf(target, 0, interface);
  if (!address) {
    return Error{Reason::failed, '"' + shortText(target) +
                                     "\" is no address to ping: set a numeric one, or a name."};
  }
  const Patience ours = patience.atMost(plan.time);
  if (ours.isOver()) return calledOff();

  facts::Pings pings;
  pings.target = target;
  pings.started = now();
  const auto began = Clock::now();
  Both both;
  try {
    both = pingBothWays(target, *address, interface, plan, ours);
  } catch (const std::system_error&) {  // no thread or descriptor left
    return noSocket(EMFILE, interface);
  }
  pings.byConnecting = !both.echoes || (!anyAnswered(both.echoes) && anyAnswered(both.connections));
  const auto& roundTrips = pings.byConnecting ? both.connections : both.echoes;
  if (!roundTrips || (isExhaustion(both.error) && !anyAnswered(roundTrips))) {
    return noSocket(both.error, interface);
  }
  if (patience.cancellation.isCancelled()) return calledOff();
  pings.sent = static_cast<int>(roundTrips->size());
  for (const auto& roundTrip : *roundTrips) {
    if (roundTrip) pings.answers.push_back(*roundTrip);
  }
  if (pings.answers.empty() && plan.isOnLink) {
    const auto index = static_cast<int>(if_nametoindex(interface.c_str()));
    pings.isNeighbour =
        netlink::awaitNeighbour(index, target, began, patience.atMost(plan.neighbourTime)) ==
        netlink::NeighbourState::reachable;
    if (patience.cancellation.isCancelled()) return calledOff();
  }
  return pings;
}

}  // namespace wifi_profile::linux::probes
