#include "devices/linux/LeftThreads.h"

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

namespace wifi_profile::linux {
namespace {

std::atomic<bool> someAreLeft = false;

}  // namespace

void leaveBehind(std::thread thread) {
  static std::mutex mutex;
  // Never destroyed, because destroying a joinable thread ends the process.
  static auto* const kThreads = new std::vector<std::thread>;
  const std::lock_guard lock(mutex);
  kThreads->push_back(std::move(thread));
  someAreLeft = true;
}

bool anyLeftBehind() { return someAreLeft; }

}  // namespace wifi_profile::linux
