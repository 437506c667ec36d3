// What the main thread waits on for its work.
#pragma once

#include "platform/Interface.h"
#include "platform/WorkQueues.h"

namespace wifi_profile {

// The thread that makes it is the main thread.
class MainQueue : public Interface {
 public:
  // Any thread.
  virtual void post(Work work) = 0;

  // Main thread: waits until there is something to handle, and handles it: the posted work, in its
  // order, and what else comes in here, such as a person's keys and taps. Returns at the latest
  // when one piece of posted work has been done.
  virtual void handleNext() = 0;
};

}  // namespace wifi_profile
