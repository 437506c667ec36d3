#include <algorithm>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>

#include "devices/linux/reach/Echoes.h"

namespace wifi_profile::machine {
namespace {

// The kernel repeats a connection's first packet after one second. What is not there sooner is
// lost.
constexpr std::chrono::milliseconds kBeforeRepeat{950};

struct Attempt {
  Descriptor socket;
  std::uint16_t port;
  bool done = false;
};

// Whether the other side answered, with a connection or a refusal. Nothing: not yet.
std::optional<bool> outcome(int error) {
  if (error == EINPROGRESS || error == EALREADY || error == EINTR) return {};
  return error == 0 || error == ECONNREFUSED;
}

int errorOf(int socket) {
  int error = 0;
  socklen_t size = sizeof(error);
  return getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

class Connections {
 public:
  Connections(const std::string& target, const std::string& interface)
      : target_(target), interface_(interface) {}

  // One round: connects to all ports until one answers, which is then the only one. False when
  // there is no socket for it.
  bool run(std::vector<std::uint16_t>& ports, std::optional<RoundTrip>& roundTrip,
           const Patience& patience) {
    const Clock::time_point started = Clock::now();
    attempts_.clear();
    for (const std::uint16_t port : ports) {
      const auto answered = start(port);
      if (!answered) return false;
      if (*answered) return take(port, started, ports, roundTrip);
    }
    while (Attempt* attempt = waitForOne(patience)) {
      if (outcome(errorOf(attempt->socket.number())).value_or(false)) {
        return take(attempt->port, started, ports, roundTrip);
      }
      attempt->done = true;
    }
    return true;
  }

 private:
  static bool take(std::uint16_t port, Clock::time_point started, std::vector<std::uint16_t>& ports,
                   std::optional<RoundTrip>& roundTrip) {
    roundTrip = Clock::now() - started;
    ports = {port};
    return true;
  }

  // Nothing: no socket. True: answered at once, as this machine's own addresses do.
  std::optional<bool> start(std::uint16_t port) {
    const auto address = addressOf(target_, port, interface_);
    if (!address) return {};
    Descriptor socket = openSocket(address->family(), SOCK_STREAM, IPPROTO_TCP, interface_);
    if (!socket) return {};
    // Ends with a reset: nothing is left to close slowly on either side.
    const linger atOnce{1, 0};
    setsockopt(socket.number(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof(atOnce));
    const int result = connect(socket.number(), address->get(), address->size);
    const auto answered = outcome(result == 0 ? 0 : errno);
    if (answered) return *answered;
    attempts_.push_back({std::move(socket), port});
    return false;
  }

  Attempt* waitForOne(const Patience& patience) {
    std::vector<pollfd> watched{{patience.cancellation.descriptor(), POLLIN, 0}};
    std::vector<Attempt*> waiting;
    for (Attempt& attempt : attempts_) {
      if (attempt.done) continue;
      watched.push_back({attempt.socket.number(), POLLOUT, 0});
      waiting.push_back(&attempt);
    }
    while (!waiting.empty() && !patience.isOver()) {
      if (poll(watched.data(), watched.size(), static_cast<int>(patience.left().count())) <= 0) {
        continue;
      }
      for (std::size_t i = 0; i < waiting.size(); ++i) {
        if (watched[i + 1].revents != 0) return waiting[i];
      }
    }
    return nullptr;
  }

  const std::string& target_;
  const std::string& interface_;
  std::vector<Attempt> attempts_;
};

}  // namespace

std::optional<RoundTrips> pingByConnecting(const std::string& target, const std::string& interface,
                                           const PingPlan& plan, const Patience& patience) {
  RoundTrips roundTrips;
  std::vector<std::uint16_t> ports = plan.ports;
  const Clock::time_point started = Clock::now();
  for (int i = 0; i < plan.count; ++i) {
    const Patience pause{std::min(started + plan.interval * i, patience.deadline),
                         patience.cancellation};
    waitFor(-1, 0, pause);
    if (patience.isOver()) break;
    std::optional<RoundTrip>& roundTrip = roundTrips.emplace_back();
    const Patience round = patience.atMost(std::min(kBeforeRepeat, plan.interval));
    if (!Connections(target, interface).run(ports, roundTrip, round)) return {};
  }
  return roundTrips;
}

}  // namespace wifi_profile::machine
