// How long work may take, and who may call it off.
#pragma once

#include <atomic>
#include <chrono>

namespace wifi_profile::machine {

// Whether somebody called the work off. Any thread.
class Cancellation {
 public:
  Cancellation();  // throws std::system_error when the system has no descriptors left
  ~Cancellation();
  Cancellation(const Cancellation&) = delete;
  Cancellation& operator=(const Cancellation&) = delete;

  void cancel();
  bool isCancelled() const { return cancelled_; }
  // For poll: readable from the moment of `cancel` on. Not to be read.
  int descriptor() const { return descriptor_; }

 private:
  std::atomic<bool> cancelled_ = false;
  int descriptor_;
};

using Clock = std::chrono::steady_clock;

// What a piece of work is given: it ends at the deadline, and within 50 ms of being called off.
struct Patience {
  Clock::time_point deadline;
  const Cancellation& cancellation;

  bool isOver() const { return cancellation.isCancelled() || Clock::now() >= deadline; }
  // Never negative.
  std::chrono::milliseconds left() const;
  // No longer than this one.
  Patience atMost(std::chrono::milliseconds time) const;
};

// Longest time for a scan: a joined radio goes back to its channel between others, so all of them
// take seconds.
inline constexpr std::chrono::milliseconds kScanLimit{20'000};

// Longest time for an answer of the machine's services, which answer at once or hang. A run sends
// nothing through the link before it has theirs, or has given them up.
inline constexpr std::chrono::milliseconds kServicesLimit{1'400};

// What an errand may overrun its limit by before it is left behind.
inline constexpr std::chrono::milliseconds kGrace{250};

enum class Waited { ready, deadline, cancelled };

// Waits until `descriptor` has one of poll's `events` (or an error), the deadline has passed or the
// work is called off. A negative descriptor only waits.
Waited waitFor(int descriptor, short events, const Patience& patience);

}  // namespace wifi_profile::machine
