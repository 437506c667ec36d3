// The toolkit's one rule about threads.
#pragma once

#include <cstdio>
#include <cstdlib>

#include "platform/WorkQueues.h"

namespace wifi_profile::toolkit {

// Views and what stands in them belong to the main thread. To change one elsewhere is a
// programmer's error and ends the process; to let go of the last reference is not.
inline void checkMainThread(const char* operation) {
  if (WorkQueues::shared()->onMainThread()) return;
  std::fprintf(stderr, "wifi-profile: %s was called off the main thread\n", operation);
  std::abort();
}

}  // namespace wifi_profile::toolkit
