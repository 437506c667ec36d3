// Queues that let somebody look after each piece of work.
#pragma once

#include <functional>
#include <utility>

#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::simulation {

class WatchedQueues final : public WorkQueues {
 public:
  // `queues` must outlive all work. `delayDivisor`: by how much shorter delays are made.
  WatchedQueues(WorkQueues& queues, std::int64_t delayDivisor)
      : queues_(queues), delayDivisor_(delayDivisor) {}

  // Called on the thread of the work, after it.
  std::function<void()> afterMainWork = [] {};
  std::function<void()> afterGlobalWork = [] {};

  void postToMain(Work work) override {
    queues_.postToMain(watched(std::move(work), afterMainWork));
  }
  void postToGlobal(Work work) override {
    queues_.postToGlobal(watched(std::move(work), afterGlobalWork));
  }
  void postToGlobalAfter(std::chrono::nanoseconds delay, Work work) override {
    queues_.postToGlobalAfter(delay / delayDivisor_, watched(std::move(work), afterGlobalWork));
  }
  void runOnGlobalAndWait(const Work& work) override { queues_.runOnGlobalAndWait(work); }
  bool onMainThread() const override { return queues_.onMainThread(); }

 private:
  static Work watched(Work work, const std::function<void()>& after) {
    return [work = std::move(work), &after] {
      work();
      after();
    };
  }

  WorkQueues& queues_;
  const std::int64_t delayDivisor_;
};

}  // namespace wifi_profile::simulation
