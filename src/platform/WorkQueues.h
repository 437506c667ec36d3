// The main queue, the global queue of default priority, and the passing of time.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>

#include "platform/Installed.h"
#include "platform/Interface.h"

namespace wifi_profile {

using Work = std::function<void()>;

// Where the diagnostic posts work. Work on the main queue runs on the main thread, one piece after
// another, in the order in which it was posted. Work on the global queue runs on background
// threads, pieces of it side by side. All operations may be called on any thread.
class WorkQueues : public Interface {
 public:
  static std::shared_ptr<WorkQueues> shared() { return Installed<WorkQueues>::get(); }

  virtual void postToMain(Work work) = 0;
  virtual void postToGlobal(Work work) = 0;

  // Posts to the global queue once `delay` has passed. No thread is held meanwhile.
  virtual void postToGlobalAfter(std::chrono::nanoseconds delay, Work work) = 0;

  // Hands `work` to the global queue and waits for it. It runs on the waiting caller's thread.
  virtual void runOnGlobalAndWait(const Work& work) = 0;

  virtual bool onMainThread() const = 0;
};

// What a device on paper and a script need to keep step with the queues.
class Pace : public Interface {
 public:
  // Returns once the main thread has handled everything that was posted to the main queue before
  // this call. Returns at once on the main thread itself.
  virtual void waitForMain() = 0;

  // Lets `time` pass for the calling thread, or less when `cut` is or becomes true and
  // `cutPauses` is called, or when the queues are told to hurry.
  virtual void pause(std::chrono::nanoseconds time, const std::atomic<bool>& cut) = 0;

  // Makes every pause under way look at its `cut` again.
  virtual void cutPauses() = 0;
};

}  // namespace wifi_profile
