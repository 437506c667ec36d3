// Threads that did not end in time.
#pragma once

#include <thread>

namespace wifi_profile::machine {

// Keeps the thread to the end of the process: it is neither joined, which could take for ever, nor
// detached. What it uses must live as long. Any thread.
void leaveBehind(std::thread thread);

// Whether a thread was left behind. Any thread.
bool anyLeftBehind();

}  // namespace wifi_profile::machine
