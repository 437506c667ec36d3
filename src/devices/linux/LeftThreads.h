// Threads that did not end in time.
#pragma once

#include <thread>

namespace wifi_profile::linux {

// Keeps the thread until the end of the process. The thread is not joined, which could block for
// ever, and not detached. The objects that it uses must live as long. Any thread.
void leaveBehind(std::thread thread);

// Whether `leaveBehind` was ever called. Any thread.
bool anyLeftBehind();

}  // namespace wifi_profile::linux
