// Collects facts. Tasks run in parallel, each at most once.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/checks/Checks.h"
#include "devices/linux/Patience.h"

namespace wifi_profile::linux {

// Writes what a task found into `facts`.
using Found = std::function<void(facts::Facts& facts)>;

// A task that finds facts.
struct Errand {
  std::string name;  // for messages: "The ... took too long."
  checks::FactSet gives;
  checks::FactSet after;            // the task begins when these are settled
  std::chrono::milliseconds limit;  // counted from the task's beginning
  // Runs on a thread of its own. `known` holds at least the facts in `after`. Must return when
  // `patience` is over. A task that continues is abandoned: its facts become unknown, and its
  // thread is kept.
  std::function<Found(const facts::Facts& known, const Patience& patience)> run;
};

// Makes these facts unknown, for this reason.
void forget(facts::Facts& facts, checks::FactSet gone, const Error& why);

// Runs a task when one of its facts is requested. A fact is settled when its task has found it, has
// failed (also by an exception), has taken too long or was cancelled. A settled fact never changes.
// Any thread.
class Gathering {
 public:
  // Each fact has at most one task. Facts without a task are settled from the start, as unknown.
  // `used` lives as long as any task runs. Throws std::system_error when the system has no
  // descriptors left.
  explicit Gathering(std::vector<Errand> errands, std::shared_ptr<const void> used = nullptr);
  // Cancels all tasks and waits for them, at most kEndLimit. The thread of a task that does not
  // end, and the objects that it uses, are kept until the end of the process.
  ~Gathering();
  Gathering(const Gathering&) = delete;
  Gathering& operator=(const Gathering&) = delete;

  static constexpr std::chrono::milliseconds kEndLimit{500};

  // Starts the tasks for these facts and the tasks that those depend on. Returns at once.
  void begin(checks::FactSet facts);

  // Starts the tasks for these facts, waits until the facts are settled, and returns all facts as
  // they are then. Returns an empty optional when the work is or was cancelled.
  std::optional<facts::Facts> await(checks::FactSet facts);

  // Cancels all tasks. Calls of `await` return at once.
  void cancel();

 private:
  class Work;
  std::shared_ptr<Work> work_;
};

}  // namespace wifi_profile::linux
