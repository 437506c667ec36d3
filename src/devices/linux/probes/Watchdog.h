// Ends the transfers of a library that does not check the time while the other side keeps sending.
#pragma once

#include <set>

#include "devices/linux/Deadline.h"

namespace wifi_profile::linux::probes {

// Owns the sockets of a transfer, and shuts them down at the deadline or on cancellation: reading
// from them and writing to them then fails. One thread, which is never ended, watches over all
// transfers of the process. Any thread.
class Watchdog {
 public:
  // Throws std::system_error if the system has no threads left.
  explicit Watchdog(const Deadline& deadline);
  // All sockets must have been closed.
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // Takes over the socket. False after the deadline or cancellation: the caller keeps the socket.
  bool add(int socket);
  void close(int socket);

 private:
  class Guard;

  const Deadline deadline_;
  bool over_ = false;  // guarded by the mutex of Guard, like the sockets
  std::set<int> sockets_;
};

}  // namespace wifi_profile::linux::probes
