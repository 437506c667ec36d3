// Ends the transfers of a library that does not look at the time while the other side keeps it
// busy.
#pragma once

#include <mutex>
#include <set>
#include <thread>

#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

// Owns the sockets of a transfer, and shuts them down when the patience is over: what reads or
// writes them then fails. Any thread.
class Watchdog {
 public:
  // Throws std::system_error when the system has no threads or descriptors left. The cancellation
  // of `patience` must outlive it.
  explicit Watchdog(const Patience& patience);
  // All sockets must be closed.
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // False when the patience is over: the socket stays the caller's.
  bool add(int socket);
  void close(int socket);

 private:
  void watch(const Patience& patience);

  Cancellation ended_;
  std::mutex mutex_;  // guards what follows
  bool over_ = false;
  std::set<int> sockets_;
  std::thread thread_;  // the last: it uses the others
};

}  // namespace wifi_profile::machine
