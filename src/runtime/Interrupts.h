// Passes the process's interrupts to a handler.
#pragma once

#include <functional>
#include <memory>

namespace wifi_profile::runtime {

// While the object exists, calls `handler` on a thread of its own at every SIGINT, SIGTERM and
// SIGHUP, one call after another. A signal that was ignored when the process started, as with
// nohup, stays ignored. At most one object per process at a time.
class Interrupts final {
 public:
  explicit Interrupts(std::function<void()> handler);
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;
  // Returns after the last call has ended.
  ~Interrupts();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile::runtime
