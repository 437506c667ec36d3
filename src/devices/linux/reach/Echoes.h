// The two ways of pinging, for ping() and its tests.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devices/linux/reach/Ping.h"
#include "devices/linux/reach/Sockets.h"

namespace wifi_profile::machine {

using RoundTrip = std::chrono::duration<double>;

// One element an echo that was sent; nothing in it: no answer.
using RoundTrips = std::vector<std::optional<RoundTrip>>;

// A socket for echoes to the target: the kernel's own for everybody, else a raw one. Without one
// errno says why; EACCES and EPERM: the user may not.
class EchoSocket {
 public:
  EchoSocket(int family, const std::string& interface);

  explicit operator bool() const { return bool(descriptor_); }
  int number() const { return descriptor_.number(); }
  bool isRaw() const { return raw_; }

 private:
  Descriptor descriptor_;
  bool raw_ = false;
};

RoundTrips echo(const EchoSocket& socket, const Address& target, const PingPlan& plan,
                const Patience& patience);

// Connections instead of echoes. Empty when no socket could be bound to the interface; errno says
// why.
std::optional<RoundTrips> pingByConnecting(const std::string& target, const std::string& interface,
                                           const PingPlan& plan, const Patience& patience);

}  // namespace wifi_profile::machine
