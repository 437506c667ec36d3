#include "devices/linux/probes/Watchdog.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace wifi_profile::linux::probes {
namespace {

// Small, because data received before the shutdown is still read after it.
constexpr int kReceiveBuffer = 64 * 1024;

}  // namespace

Watchdog::Watchdog(const Patience& patience) : thread_([this, patience] { watch(patience); }) {}

Watchdog::~Watchdog() {
  ended_.cancel();
  thread_.join();
}

bool Watchdog::add(int socket) {
  const std::lock_guard lock(mutex_);
  if (over_) return false;
  setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &kReceiveBuffer, sizeof(kReceiveBuffer));
  sockets_.insert(socket);
  return true;
}

void Watchdog::close(int socket) {
  const std::lock_guard lock(mutex_);
  sockets_.erase(socket);
  ::close(socket);
}

void Watchdog::watch(const Patience& patience) {
  waitFor(ended_.descriptor(), POLLIN, patience);
  if (ended_.isCancelled()) return;
  const std::lock_guard lock(mutex_);
  over_ = true;
  for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
}

}  // namespace wifi_profile::linux::probes
