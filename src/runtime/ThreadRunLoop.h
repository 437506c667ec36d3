// Queues on real threads, in real time.
#pragma once

#include <cstddef>
#include <memory>

#include "runtime/MainQueue.h"
#include "runtime/RunLoop.h"

namespace wifi_profile::runtime {

// The main queue runs on the thread that creates the run loop, the global queue on a pool of
// `workers` threads (at least one). A delayed post waits on a timer and occupies no worker. Work
// must not throw. Other input of the main queue is handled whenever the queue is handled.
class ThreadRunLoop final : public RunLoop {
 public:
  static constexpr std::size_t kUsualWorkers = 3;

  explicit ThreadRunLoop(std::size_t workers = kUsualWorkers);
  explicit ThreadRunLoop(std::shared_ptr<MainQueue> main, std::size_t workers = kUsualWorkers);
  ~ThreadRunLoop() override;

  void postToMain(Work work) override;
  void postToGlobal(Work work) override;
  void postToGlobalAfter(std::chrono::nanoseconds delay, Work work) override;
  void runOnGlobalAndWait(const Work& work) override;

  bool onMainThread() const override;
  void waitForMain() override;
  void pause(std::chrono::nanoseconds time, const std::atomic<bool>& cut) override;
  void cutPauses() override;

  void runUntilIdle() override;
  void hurry() override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile::runtime
