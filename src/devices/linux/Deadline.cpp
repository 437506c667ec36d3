#include "devices/linux/Deadline.h"

#include <algorithm>
#include <cerrno>

namespace wifi_profile::linux {

using std::chrono::milliseconds;

milliseconds Deadline::left() const {
  return std::max(std::chrono::ceil<milliseconds>(time - Clock::now()), milliseconds(0));
}

Deadline Deadline::until(Clock::time_point latest) const { return {std::min(time, latest), stop}; }

milliseconds Deadline::slice() const {
  constexpr milliseconds kLongestSlice{40};
  constexpr milliseconds kLongestWait = std::chrono::hours(1);  // fits poll's int
  return std::min(left(), stop.stop_possible() ? kLongestSlice : kLongestWait);
}

Waited waitFor(std::span<pollfd> watched, const Deadline& deadline) {
  while (true) {
    const auto slice = deadline.slice().count();
    const int ready = poll(watched.data(), watched.size(), static_cast<int>(slice));
    if (deadline.isCancelled()) return Waited::cancelled;
    if (ready > 0) return Waited::ready;
    if (ready == 0 && slice == 0) return Waited::deadline;
    if (ready < 0 && errno != EINTR) return Waited::ready;  // the next call reports it
  }
}

Waited waitFor(int descriptor, short events, const Deadline& deadline) {
  pollfd watched{descriptor, events, 0};
  return waitFor({&watched, 1}, deadline);
}

void sleepUntil(const Deadline& deadline) { waitFor({}, deadline); }

}  // namespace wifi_profile::linux
