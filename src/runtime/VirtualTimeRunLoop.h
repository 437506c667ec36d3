// Queues in virtual time: one piece of work at a time, the next one chosen by rule, waits for free.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/RunLoop.h"

namespace wifi_profile {

// A run loop whose every run is repeatable. Work on the global queue has threads of its own, but
// only one thread of all ever runs; it hands over when its work ends, pauses or waits for the main
// thread. The clock stands still while anything can run and then jumps to the next point at which
// something is due, so waits take no real time.
//
// When several could run, seed 0 prefers the main queue and then the work that became ready first;
// any other seed chooses at random, the same seed always alike.
class VirtualTimeRunLoop final : public RunLoop {
 public:
  explicit VirtualTimeRunLoop(std::uint64_t seed = 0);
  ~VirtualTimeRunLoop() override;

  void postToMain(Work work) override;
  void postToGlobal(Work work) override;
  void postToGlobalAfter(std::chrono::nanoseconds delay, Work work) override;
  void runOnGlobalAndWait(const Work& work) override;

  bool onMainThread() const override;
  void waitForMain() override;
  void pause(std::chrono::nanoseconds time, const std::atomic<bool>& cut) override;
  void cutPauses() override;

  void runUntilIdle() override;
  void hurry() override {}  // no wait takes time as it is

  // Virtual time since the run loop was made.
  std::chrono::nanoseconds now() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile
