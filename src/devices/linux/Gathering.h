// Finding facts out, side by side, each once.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "checks/Checks.h"
#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

// Puts what was found where it belongs.
using Found = std::function<void(checks::Facts& facts)>;

// One piece of work that finds facts out.
struct Errand {
  std::string name;  // for a message: "The ... took too long."
  checks::FactSet gives;
  checks::FactSet after;            // begins when these are settled
  std::chrono::milliseconds limit;  // from its beginning
  // On a thread of its own. `known` has what `after` asks for. Must end with its patience; one that
  // does not is left behind, and what it gives counts as not known.
  std::function<Found(const checks::Facts& known, const Patience& patience)> run;
};

// Runs errands when somebody wants what they give. A fact is settled once it was found out or its
// errand has failed, has taken too long or was called off; it never changes after that. Any thread.
class Gathering {
 public:
  // Every fact is given by one errand at most; those given by none are settled from the start, as
  // not known. Throws std::system_error when the system has no descriptors left.
  explicit Gathering(std::vector<Errand> errands);
  // Calls everything off, and waits for it.
  ~Gathering();
  Gathering(const Gathering&) = delete;
  Gathering& operator=(const Gathering&) = delete;

  // Begins what gives these facts, and what that comes after. Returns at once.
  void begin(checks::FactSet facts);

  // Waits until these facts are settled, and returns all that are by then. Nothing when it was
  // called off meanwhile, or before.
  std::optional<checks::Facts> await(checks::FactSet facts);

  // Calls everything off: whoever waits goes on at once.
  void cancel();
  const Cancellation& cancellation() const { return cancellation_; }

 private:
  struct Task {
    explicit Task(Errand one) : errand(std::move(one)) {}
    Errand errand;
    std::thread thread;                        // joinable: it was begun
    std::optional<Clock::time_point> overdue;  // while it runs
    bool settled = false;
  };

  void beginLocked(checks::FactSet facts);
  void giveUpLocked(Task& task, const checks::Unknown& why);
  void perform(Task& task);
  void settleOverdue();
  bool isSettled(checks::FactSet facts) const;
  std::optional<Clock::time_point> nextOverdue() const;

  Cancellation cancellation_;
  mutable std::mutex mutex_;  // guards what follows
  std::condition_variable changed_;
  checks::Facts facts_;
  std::list<Task> tasks_;
};

}  // namespace wifi_profile::machine
