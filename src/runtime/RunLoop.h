// Runs the main queue; the only part that a host drives.
#pragma once

#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::runtime {

// The thread that creates the run loop is the main thread. The run loop must outlive all work
// posted to it.
class RunLoop : public WorkQueues, public Pace {
 public:
  // Main thread: handles the main queue until there is nothing left to do: the main queue is empty,
  // and no work is running, waiting or delayed on the global queue.
  virtual void runUntilIdle() = 0;

  // Any thread: from now on no wait takes time. Current pauses and delays end at once. Delayed work
  // runs after the work that was already posted to the main queue.
  virtual void hurry() = 0;
};

}  // namespace wifi_profile::runtime
