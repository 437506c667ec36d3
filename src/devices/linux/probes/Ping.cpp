#include "devices/linux/probes/Ping.h"

#include <algorithm>
#include <cerrno>
#include <net/if.h>
#include <optional>

#include "devices/linux/netlink/Neighbours.h"
#include "devices/linux/probes/ConnectPings.h"
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

// Sends the echoes and, after kEchoesAlone, also makes connections. Ends when all echoes are
// answered, or when the connections have finished and any of them was answered.
Both pingBothWays(const std::string& target, const Address& address, const std::string& interface,
                  const PingPlan& plan, const Deadline& deadline) {
  Both both;
  Echoes echoes(address, interface, plan);
  const bool mayEcho = echoes.error() == 0;
  if (!mayEcho && echoes.error() != EACCES && echoes.error() != EPERM) {
    both.error = echoes.error();
    return both;
  }
  const auto connectFrom = mayEcho ? Clock::now() + kEchoesAlone : Clock::now();
  std::optional<ConnectPings> connections;
  while (!deadline.isOver() && !(mayEcho && echoes.allAnswered())) {
    std::vector<pollfd> watched;
    std::optional<Clock::time_point> next;  // when to look again, also without events
    const auto now = Clock::now();
    if (!connections && both.error == 0) {
      if (now >= connectFrom) connections.emplace(target, interface, plan);
      next = connectFrom;
    }
    if (connections) {
      if (connections->next() && now >= *connections->next() && !connections->startRound()) {
        both.error = errno;
        connections.reset();
        if (!mayEcho) return both;
        continue;
      }
      if (connections->isDone() && (!mayEcho || anyAnswered(connections->roundTrips()))) break;
      next = connections->next();
      connections->addWatched(watched);
    }
    if (mayEcho) {
      if (echoes.next() && now >= *echoes.next()) echoes.send();
      if (echoes.next()) next = std::min(next.value_or(*echoes.next()), *echoes.next());
      watched.push_back(echoes.watched());
    }
    if (waitFor(watched, next ? deadline.until(*next) : deadline) != Waited::ready) continue;
    if (connections) connections->take(watched);
    if (mayEcho && watched.back().revents != 0) echoes.receive();
  }
  if (mayEcho) both.echoes = echoes.roundTrips();
  if (connections) both.connections = connections->roundTrips();
  return both;
}

}  // namespace

Result<facts::Pings> ping(const std::string& target, const std::string& interface,
                          const PingPlan& plan, const Deadline& deadline) {
  const auto address = addressOf(target, 0, interface);
  if (!address) {
    return Error{Reason::failed, '"' + shortText(target) +
                                     "\" is no address to ping: set a numeric one, or a name."};
  }
  const Deadline ours = deadline.atMost(plan.time);
  if (ours.isOver()) return cancelled();

  facts::Pings pings;
  pings.target = target;
  pings.started = now();
  const auto began = Clock::now();
  const Both both = pingBothWays(target, *address, interface, plan, ours);
  const bool connected = both.connections && anyAnswered(*both.connections);
  pings.byConnecting = !both.echoes || (!anyAnswered(*both.echoes) && connected);
  const auto& roundTrips = pings.byConnecting ? both.connections : both.echoes;
  if (!roundTrips || (isExhaustion(both.error) && !anyAnswered(*roundTrips))) {
    return noSocket(both.error, interface);
  }
  if (deadline.isCancelled()) return cancelled();
  pings.sent = static_cast<int>(roundTrips->size());
  for (const auto& roundTrip : *roundTrips) {
    if (roundTrip) pings.answers.push_back(*roundTrip);
  }
  if (pings.answers.empty() && plan.isOnLink) {
    const auto index = static_cast<int>(if_nametoindex(interface.c_str()));
    pings.isNeighbour =
        netlink::awaitNeighbour(index, target, began, deadline.atMost(plan.neighbourTime)) ==
        netlink::NeighbourState::reachable;
    if (deadline.isCancelled()) return cancelled();
  }
  return pings;
}

}  // namespace wifi_profile::linux::probes
