// Deadlines and cancellation.
#pragma once

#include <atomic>
#include <chrono>

namespace wifi_profile::linux {

// A flag that cancels work. Any thread.
class Cancellation {
 public:
  Cancellation();  // throws std::system_error when the system has no descriptors left
  ~Cancellation();
  Cancellation(const Cancellation&) = delete;
  Cancellation& operator=(const Cancellation&) = delete;

  void cancel();
  bool isCancelled() const { return cancelled_; }
  // For poll: readable from `cancel` on. Do not read from it.
  int descriptor() const { return descriptor_; }

 private:
  std::atomic<bool> cancelled_ = false;
  int descriptor_;
};

using Clock = std::chrono::steady_clock;

// The limits of a piece of work: it ends at the deadline, and within 50 ms of being cancelled.
struct Patience {
  Clock::time_point deadline;
  const Cancellation& cancellation;

  bool isOver() const { return cancellation.isCancelled() || Clock::now() >= deadline; }
  // Returns the time left; never negative.
  std::chrono::milliseconds left() const;
  // Returns these limits with a deadline at most `time` from now.
  Patience atMost(std::chrono::milliseconds time) const;
};

// Longest time for a scan. A joined radio returns to its own channel between the others, so a scan
// of all channels takes seconds.
inline constexpr std::chrono::milliseconds kScanLimit{20'000};

// Longest time for an answer of the machine's services, which answer at once or hang. A run sends
// no packets through the link until the services have answered or this time has passed.
inline constexpr std::chrono::milliseconds kServicesLimit{1'400};

// How far a task may exceed its limit before it is abandoned.
inline constexpr std::chrono::milliseconds kGrace{250};

enum class Waited { ready, deadline, cancelled };

// Waits until `descriptor` has one of poll's `events` (or an error), the deadline has passed or the
// work is cancelled. With a negative descriptor, only waits.
Waited waitFor(int descriptor, short events, const Patience& patience);

}  // namespace wifi_profile::linux
