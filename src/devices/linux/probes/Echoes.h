// Echoes (ICMP, ICMPv6) to one target, for ping().
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "devices/linux/probes/Ping.h"
#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {

using RoundTrip = std::chrono::duration<double>;

// One element for each ping that was sent; empty: it was not answered.
using RoundTrips = std::vector<std::optional<RoundTrip>>;

inline bool anyAnswered(const RoundTrips& roundTrips) {
  return std::ranges::any_of(roundTrips, [](const auto& roundTrip) { return bool(roundTrip); });
}

// Uses the kernel's ping socket, which ordinary users may open where the system allows it, else a
// raw one.
class Echoes {
 public:
  Echoes(const Address& target, const std::string& interface, const PingPlan& plan);

  // errno's number if there is no socket; EACCES and EPERM: this user may not send echoes. Then no
  // other function may be called.
  int error() const { return error_; }

  // When the next echo is due; empty: all were sent.
  std::optional<Clock::time_point> next() const;
  // Sends the echo that is due.
  void send();
  pollfd watched() const { return {socket_.number(), POLLIN, 0}; }
  // Reads one packet, if there is any.
  void receive();
  bool allAnswered() const { return answered_ == plan_.count; }
  const RoundTrips& roundTrips() const { return roundTrips_; }

 private:
  using Token = std::array<std::uint8_t, 16>;
  struct Echo;

  void open(const std::string& interface);
  bool isFromTarget(const sockaddr_storage& from) const;

  const Address& target_;
  const PingPlan& plan_;
  const bool ofIPv4_;
  Descriptor socket_;
  bool isRaw_ = false;
  int error_ = 0;
  Token token_{};
  std::uint16_t identifier_ = 0;
  const Clock::time_point started_ = Clock::now();
  std::vector<Clock::time_point> sent_;
  RoundTrips roundTrips_;
  int answered_ = 0;
};

}  // namespace wifi_profile::linux::probes
