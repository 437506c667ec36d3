// The two kinds of ping, for ping() and its tests: echoes and connections.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devices/linux/probes/Ping.h"
#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {

using RoundTrip = std::chrono::duration<double>;

// One element for each echo that was sent; empty: it was not answered.
using RoundTrips = std::vector<std::optional<RoundTrip>>;

// A socket for echoes: the kernel's ping socket, which ordinary users may open where the system
// allows it, else a raw one. Without a socket, errno says why; EACCES and EPERM: this user may not.
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

// Connects instead of sending echoes. Empty: no socket could be bound to the interface; errno says
// why.
std::optional<RoundTrips> pingByConnecting(const std::string& target, const std::string& interface,
                                           const PingPlan& plan, const Patience& patience);

}  // namespace wifi_profile::linux::probes
