// The process's interrupts, told to a handler.
#pragma once

#include <functional>
#include <memory>

namespace wifi_profile {

// For as long as it lives, calls `handler` on a thread of its own at every SIGINT, SIGTERM and
// SIGHUP, one call after another. A signal that the process was started to ignore, as by nohup,
// stays ignored. One at a time in a process.
class Interrupts final {
 public:
  explicit Interrupts(std::function<void()> handler);
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;
  // Returns when no call is under way any more.
  ~Interrupts();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile
