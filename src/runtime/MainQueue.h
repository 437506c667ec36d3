// The queue from which the main thread takes its work.
#pragma once

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::runtime {

// The thread that creates it is the main thread.
class MainQueue : public Interface {
 public:
  // Any thread.
  virtual void post(Work work) = 0;

  // Main thread: waits until there is something to handle, then handles it: posted work in its
  // order, and other input, such as the user's keys and taps. Returns after at most one piece of
  // posted work.
  virtual void handleNext() = 0;
};

}  // namespace wifi_profile::runtime
