// Collects facts. Tasks run in parallel, each at most once.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "analysis/checks/Checks.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/Workers.h"

namespace wifi_profile::linux {

// Writes what a task found into `facts`.
using Found = std::function<void(facts::Facts& facts)>;

// A task that finds facts.
struct FactTask {
  std::string name;  // for messages: "The ... took too long."
  checks::FactSet gives;
  checks::FactSet after;            // the task begins when these are settled
  std::chrono::milliseconds limit;  // counted from the task's beginning
  // Runs on a worker. `known` holds at least the facts in `after`. Must return when the deadline is
  // over. A task that continues is abandoned: its facts become unknown, and another thread takes
  // the place of its worker.
  std::function<Found(const facts::Facts& known, const Deadline& deadline)> run;
};

// Makes these facts unknown, for this reason.
void forget(facts::Facts& facts, checks::FactSet gone, const Error& why);

// How far a task may exceed its limit before it is abandoned.
inline constexpr std::chrono::milliseconds kGrace{250};

// Runs a task when one of its facts is requested; those of a request that waits come first. A fact
// is settled when its task has found it, has failed (also by an exception), has taken too long or
// was cancelled. A settled fact never changes. Any thread.
class FactCollection {
 public:
  using FactsRef = std::shared_ptr<const facts::Facts>;

  // Each fact has at most one task. Facts without a task are settled from the start, as unknown.
  // `used` lives as long as any task runs, which may be longer than this object.
  explicit FactCollection(std::vector<FactTask> tasks, std::shared_ptr<const void> used = nullptr,
                          Workers& workers = Workers::shared());
  // Cancels all tasks, and does not wait for them.
  ~FactCollection();
  FactCollection(const FactCollection&) = delete;
  FactCollection& operator=(const FactCollection&) = delete;

  // Starts the tasks for these facts and the tasks that those depend on. Returns at once.
  void begin(checks::FactSet facts);

  // Starts the tasks for these facts, waits until the facts are settled, and returns all facts as
  // they are then. Returns null when the work is or was cancelled.
  FactsRef await(checks::FactSet facts);

  // Cancels all tasks. Calls of `await` return at once.
  void cancel();

 private:
  class Work;
  std::shared_ptr<Work> work_;
};

}  // namespace wifi_profile::linux
