// Deadlines and cancellation.
#pragma once

#include <chrono>
#include <poll.h>
#include <span>
#include <stop_token>

namespace wifi_profile::linux {

using Clock = std::chrono::steady_clock;

// The limits of a piece of work: it ends at this time, and within 50 ms of a request to stop. Any
// thread.
struct Deadline {
  Clock::time_point time;
  std::stop_token stop = {};  // default: the work cannot be cancelled

  static Deadline in(Clock::duration time, std::stop_token stop = {}) {
    return {Clock::now() + time, std::move(stop)};
  }

  bool isCancelled() const { return stop.stop_requested(); }
  bool isOver() const { return isCancelled() || Clock::now() >= time; }
  // Returns the time left, rounded up; never negative.
  std::chrono::milliseconds left() const;
  // Returns these limits with a time at most `limit` from now, or at most `latest`.
  Deadline atMost(std::chrono::milliseconds limit) const { return until(Clock::now() + limit); }
  Deadline until(Clock::time_point latest) const;
  // Returns how long a call that blocks may wait before the work looks for a request to stop: the
  // time left, but at most 40 ms if the work can be cancelled.
  std::chrono::milliseconds slice() const;
};

// Longest time for a scan. A joined radio returns to its own channel between the others, so a scan
// of all channels takes seconds.
inline constexpr std::chrono::milliseconds kScanLimit{20'000};

enum class Waited { ready, deadline, cancelled };

// Waits until a descriptor has one of its events (or an error), the deadline has passed or the work
// is cancelled. Descriptors that are negative are ignored.
Waited waitFor(std::span<pollfd> watched, const Deadline& deadline);
Waited waitFor(int descriptor, short events, const Deadline& deadline);

// Waits until the deadline has passed or the work is cancelled.
void sleepUntil(const Deadline& deadline);

}  // namespace wifi_profile::linux
