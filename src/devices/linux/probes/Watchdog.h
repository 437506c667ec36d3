// Ends the transfers of a library that does not check the time while the other side keeps sending.
#pragma once

#include <mutex>
#include <set>
#include <thread>

#include "devices/linux/Patience.h"

namespace wifi_profile::linux::probes {

// Owns the sockets of a transfer, and shuts them down at the deadline or on cancellation: reading
// from them and writing to them then fails. Any thread.
class Watchdog {
 public:
  // Throws std::system_error if the system has no threads or descriptors left. The cancellation of
  // `patience` must outlive this object.
  explicit Watchdog(const Patience& patience);
  // All sockets must have been closed.
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // Takes over the socket. False after the deadline or cancellation: the caller keeps the socket.
  bool add(int socket);
  void close(int socket);

 private:
  void watch(const Patience& patience);

  Cancellation ended_;
  std::mutex mutex_;  // guards what follows
  bool over_ = false;
  std::set<int> sockets_;
  std::thread thread_;  // declared last, because it uses the others
};

}  // namespace wifi_profile::linux::probes
