// What runs the main queue: the one thing that a host drives.
#pragma once

#include "platform/WorkQueues.h"

namespace wifi_profile {

// The thread that makes the run loop is the main thread. It must outlive all work posted to it.
class RunLoop : public WorkQueues, public Pace {
 public:
  // Main thread: handles the main queue until nothing is left to do, that is, until the main queue
  // is empty and no work is running, waiting or delayed on the global queue.
  virtual void runUntilIdle() = 0;

  // Any thread: from now on no wait takes time. Pauses and delays under way end at once; what was
  // delayed comes after what had been posted to the main queue by then.
  virtual void hurry() = 0;
};

}  // namespace wifi_profile
