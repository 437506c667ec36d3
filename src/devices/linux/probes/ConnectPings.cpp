#include <algorithm>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>

#include "devices/linux/probes/Echoes.h"

namespace wifi_profile::linux::probes {
namespace {

// The kernel repeats a connection's first packet after one second.
constexpr std::chrono::milliseconds kRepeat{1000};

struct Attempt {
  Descriptor socket;
  std::size_t round;
  std::uint16_t port;
};

// Whether the other side answered, with a connection or a refusal. Empty: not yet.
std::optional<bool> outcome(int error) {
  if (error == EINPROGRESS || error == EALREADY || error == EINTR) return {};
  return error == 0 || error == ECONNREFUSED;
}

int errorOf(int socket) {
  int error = 0;
  socklen_t size = sizeof(error);
  return getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

// Makes rounds of connections. A round tries all ports until one has answered; later rounds use
// only that port. All rounds continue until the end.
class Connections {
 public:
  Connections(const std::string& target, const std::string& interface, const PingPlan& plan)
      : target_(target), interface_(interface), plan_(plan), ports_(plan.ports) {}

  // Empty: no socket could be opened for one of them; errno says why.
  std::optional<RoundTrips> run(const Patience& patience) {
    const Clock::time_point began = Clock::now();
    while (!patience.isOver()) {
      const auto next = began + plan_.interval * static_cast<int>(started_.size());
      const bool all = static_cast<int>(started_.size()) >= plan_.count;
      if (all && attempts_.empty()) break;
      if (!all && Clock::now() >= next) {
        if (!startRound()) return {};
        continue;
      }
      watch({all ? patience.deadline : std::min(next, patience.deadline), patience.cancellation});
    }
    leaveOutRepeated();
    return roundTrips_;
  }

 private:
  bool startRound() {
    const std::size_t round = started_.size();
    started_.push_back(Clock::now());
    roundTrips_.emplace_back();
    for (const std::uint16_t port : std::vector(ports_)) {
      if (!start(round, port)) return false;
      if (roundTrips_[round]) break;
    }
    return true;
  }

  bool start(std::size_t round, std::uint16_t port) {
    const auto address = addressOf(target_, port, interface_);
    if (!address) return false;
    Descriptor socket = openSocket(address->family(), SOCK_STREAM, IPPROTO_TCP, interface_);
    if (!socket) return false;
    // Closing sends a reset, so that neither side keeps a closing connection.
    const linger atOnce{1, 0};
    setsockopt(socket.number(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof(atOnce));
    const int result = connect(socket.number(), address->get(), address->size);
    const auto answered = outcome(result == 0 ? 0 : errno);
    if (!answered) {
      attempts_.push_back({std::move(socket), round, port});
    } else if (*answered) {  // at once, for instance at an address of this machine
      take(round, port);
    }
    return true;
  }

  void take(std::size_t round, std::uint16_t port) {
    roundTrips_[round] = Clock::now() - started_[round];
    ports_ = {port};
    std::erase_if(attempts_, [round](const Attempt& attempt) { return attempt.round == round; });
  }

  void watch(const Patience& patience) {
    std::vector<pollfd> watched{{patience.cancellation.descriptor(), POLLIN, 0}};
    for (const Attempt& attempt : attempts_) {
      watched.push_back({attempt.socket.number(), POLLOUT, 0});
    }
    if (poll(watched.data(), watched.size(), static_cast<int>(patience.left().count())) <= 0) {
      return;
    }
    for (const pollfd& one : watched) {
      // The attempt may have been removed with its round.
      const auto attempt = std::ranges::find_if(
          attempts_, [&](const Attempt& other) { return other.socket.number() == one.fd; });
      if (one.revents == 0 || attempt == attempts_.end()) continue;
      const auto answered = outcome(errorOf(one.fd));
      if (answered.value_or(false)) {
        take(attempt->round, attempt->port);
      } else {
        attempts_.erase(attempt);
      }
    }
  }

  // If some pings were answered within kRepeat, an answer after that answers the kernel's
  // repetition: the first packet was lost, so the ping counts as unanswered.
  void leaveOutRepeated() {
    const auto early = [](const auto& one) { return one && *one < kRepeat; };
    if (std::ranges::none_of(roundTrips_, early)) return;
    for (auto& one : roundTrips_) {
      if (!early(one)) one.reset();
    }
  }

  const std::string& target_;
  const std::string& interface_;
  const PingPlan& plan_;
  std::vector<std::uint16_t> ports_;
  std::vector<Clock::time_point> started_;  // beginnings of the rounds
  RoundTrips roundTrips_;
  std::vector<Attempt> attempts_;  // attempts without an outcome
};

}  // namespace

std::optional<RoundTrips> pingByConnecting(const std::string& target, const std::string& interface,
                                           const PingPlan& plan, const Patience& patience) {
  return Connections(target, interface, plan).run(patience);
}

}  // namespace wifi_profile::linux::probes
