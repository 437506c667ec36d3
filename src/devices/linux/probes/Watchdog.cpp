#include "devices/linux/probes/Watchdog.h"

#include <condition_variable>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include "diagnostic/platform/Mutex.h"

namespace wifi_profile::linux::probes {
namespace {

// Small, because data received before the shutdown is still read after it.
constexpr int kReceiveBuffer = 64 * 1024;
constexpr std::chrono::milliseconds kBetweenLooks{40};

}  // namespace

class Watchdog::Guard {
 public:
  // Never destroyed, because its thread does not end.
  static Guard& shared() {
    static auto* const kGuard = new Guard;
    return *kGuard;
  }

  void add(Watchdog* one) {
    const MutexLock lock(mutex);
    if (!thread_.joinable()) thread_ = std::thread([this] { watch(); });
    watched_.insert(one);
    changed_.notify_one();
  }

  void remove(Watchdog* one) {
    const MutexLock lock(mutex);
    watched_.erase(one);
  }

  Mutex mutex;

 private:
  [[noreturn]] void watch() {
    MutexLock lock(mutex);
    while (true) {
      for (Watchdog* one : watched_) {
        if (one->over_ || !one->deadline_.isOver()) continue;
        one->over_ = true;
        for (const int socket : one->sockets_) shutdown(socket, SHUT_RDWR);
      }
      if (watched_.empty()) {
        changed_.wait(mutex);
      } else {
        changed_.wait_for(mutex, kBetweenLooks);
      }
    }
  }

  std::condition_variable_any changed_;
  std::set<Watchdog*> watched_ GUARDED_BY(mutex);
  std::thread thread_ GUARDED_BY(mutex);
};

Watchdog::Watchdog(const Deadline& deadline) : deadline_(deadline) { Guard::shared().add(this); }

Watchdog::~Watchdog() { Guard::shared().remove(this); }

bool Watchdog::add(int socket) {
  const MutexLock lock(Guard::shared().mutex);
  if (over_) return false;
  setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &kReceiveBuffer, sizeof(kReceiveBuffer));
  sockets_.insert(socket);
  return true;
}

void Watchdog::close(int socket) {
  const MutexLock lock(Guard::shared().mutex);
  sockets_.erase(socket);
  ::close(socket);
}

}  // namespace wifi_profile::linux::probes
