#include "devices/linux/probes/ConnectPings.h"

#include <algorithm>
#include <cerrno>
#include <netinet/in.h>

namespace wifi_profile::linux::probes {
namespace {

// The kernel repeats a connection's first packet after one second.
constexpr std::chrono::milliseconds kRepeat{1000};

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

}  // namespace

std::optional<Clock::time_point> ConnectPings::next() const {
  if (static_cast<int>(started_.size()) >= plan_.count) return {};
  return began_ + plan_.interval * static_cast<int>(started_.size());
}

bool ConnectPings::startRound() {
  const std::size_t round = started_.size();
  started_.push_back(Clock::now());
  roundTrips_.emplace_back();
  for (const std::uint16_t port : std::vector(ports_)) {
    if (!start(round, port)) return false;
    if (roundTrips_[round]) break;
  }
  return true;
}

bool ConnectPings::start(std::size_t round, std::uint16_t port) {
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
    settle(round, port);
  }
  return true;
}

void ConnectPings::settle(std::size_t round, std::uint16_t port) {
  roundTrips_[round] = Clock::now() - started_[round];
  ports_ = {port};
  std::erase_if(attempts_, [round](const Attempt& attempt) { return attempt.round == round; });
}

void ConnectPings::addWatched(std::vector<pollfd>& watched) const {
  for (const Attempt& attempt : attempts_) {
    watched.push_back({attempt.socket.number(), POLLOUT, 0});
  }
}

void ConnectPings::take(const std::vector<pollfd>& watched) {
  for (const pollfd& one : watched) {
    // The attempt may have been removed with its round.
    const auto attempt = std::ranges::find_if(
        attempts_, [&](const Attempt& other) { return other.socket.number() == one.fd; });
    if (one.revents == 0 || attempt == attempts_.end()) continue;
    const auto answered = outcome(errorOf(one.fd));
    if (answered.value_or(false)) {
      settle(attempt->round, attempt->port);
    } else {
      attempts_.erase(attempt);
    }
  }
}

RoundTrips ConnectPings::roundTrips() const {
  const auto early = [](const auto& one) { return one && *one < kRepeat; };
  RoundTrips result = roundTrips_;
  if (std::ranges::none_of(result, early)) return result;
  for (auto& one : result) {
    if (!early(one)) one.reset();
  }
  return result;
}

}  // namespace wifi_profile::linux::probes
