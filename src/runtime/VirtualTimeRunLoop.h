// Queues in virtual time: one piece of work runs at a time, chosen by rule, and waits take no time.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/RunLoop.h"

namespace wifi_profile::runtime {

// A run loop whose runs are repeatable. Each piece of work on the global queue has a thread, but
// only one of all threads runs at a time. It hands over when its work ends, pauses or waits for the
// main thread. The clock stands still while any work can run and then jumps to the next due time,
// so waits take no real time.
//
// If several can run, seed 0 prefers the main queue and then the work that became ready first. Any
// other seed chooses at random, with the same choices for the same seed.
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
  void hurry() override {}  // waits take no time anyway

  // Returns the virtual time since the run loop was created.
  std::chrono::nanoseconds now() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile::runtime
