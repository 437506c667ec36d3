// The thread rule of the toolkit.
#pragma once

#include <string>

#include "diagnostic/platform/ProgrammingError.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::toolkit {

// Views and the objects in them belong to the main thread. Changing one on another thread is a
// programming error and aborts the process; releasing the last reference there is allowed.
inline void checkMainThread(const char* operation) {
  if (WorkQueues::shared()->onMainThread()) return;
  programmingError(std::string(operation) + " was called off the main thread");
}

}  // namespace wifi_profile::toolkit
