// The main queue, the global queue of default priority, and timing.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"

namespace wifi_profile {

using Work = std::function<void()>;

// The queues that the diagnostic posts work to. Work on the main queue runs on the main thread, one
// item at a time, in the order of posting. Work on the global queue runs on background threads,
// concurrently. All operations may be called on any thread.
class WorkQueues : public Interface {
 public:
  static WorkQueues* shared() {
    return InstalledPlatform::get(&Platform::queues, "the work queues");
  }

  virtual void postToMain(Work work) = 0;
  virtual void postToGlobal(Work work) = 0;

  // Posts `work` to the global queue after `delay`. No thread is blocked in the meantime.
  virtual void postToGlobalAfter(std::chrono::nanoseconds delay, Work work) = 0;

  // Runs `work` as an item of the global queue, but on the calling thread, and returns when it has
  // finished.
  virtual void runOnGlobalAndWait(const Work& work) = 0;

  virtual bool onMainThread() const = 0;
};

// The operations that keep a simulated device and a script in step with the queues.
class Pace : public Interface {
 public:
  // Returns when the main thread has run everything that was posted to the main queue before this
  // call. Returns immediately on the main thread.
  virtual void waitForMain() = 0;

  // Blocks the calling thread for `time`. Ends early if `cut` is or becomes true and `cutPauses` is
  // called, or if the queues are set to hurry.
  virtual void pause(std::chrono::nanoseconds time, const std::atomic<bool>& cut) = 0;

  // Makes every current pause check its `cut` again.
  virtual void cutPauses() = 0;
};

}  // namespace wifi_profile
