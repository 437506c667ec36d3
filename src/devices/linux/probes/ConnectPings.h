// TCP connections to one target instead of echoes, for ping().
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devices/linux/probes/Echoes.h"

namespace wifi_profile::linux::probes {

// Makes rounds of connections. A round tries all ports until one has answered; later rounds use
// only that port. All rounds continue until the end.
class ConnectPings {
 public:
  ConnectPings(const std::string& target, const std::string& interface, const PingPlan& plan)
      : target_(target), interface_(interface), plan_(plan), ports_(plan.ports) {}

  // When the next round is due; empty: all were started.
  std::optional<Clock::time_point> next() const;
  // Starts the round that is due. False: no socket could be opened for one of its connections;
  // errno says why.
  bool startRound();
  // Whether all rounds were started and every connection has an outcome.
  bool isDone() const { return !next() && attempts_.empty(); }

  void addWatched(std::vector<pollfd>& watched) const;
  // Reads the outcomes of connections that poll found ready.
  void take(const std::vector<pollfd>& watched);

  // If some pings were answered within 1 s, an answer after that answers the kernel's repetition:
  // the first packet was lost, so the ping counts as unanswered.
  RoundTrips roundTrips() const;

 private:
  struct Attempt {
    Descriptor socket;
    std::size_t round;
    std::uint16_t port;
  };

  bool start(std::size_t round, std::uint16_t port);
  void settle(std::size_t round, std::uint16_t port);

  const std::string& target_;
  const std::string& interface_;
  const PingPlan& plan_;
  const Clock::time_point began_ = Clock::now();
  std::vector<std::uint16_t> ports_;
  std::vector<Clock::time_point> started_;  // beginnings of the rounds
  RoundTrips roundTrips_;
  std::vector<Attempt> attempts_;  // connections without an outcome
};

}  // namespace wifi_profile::linux::probes
