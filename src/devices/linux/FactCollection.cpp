#include "devices/linux/FactCollection.h"

#include <algorithm>
#include <condition_variable>
#include <list>
#include <optional>
#include <stop_token>
#include <utility>

namespace wifi_profile::linux {
namespace {

using checks::FactSet;
using facts::Facts;

}  // namespace

void forget(Facts& facts, FactSet gone, const Error& why) {
  forEachFact(facts, [&](const facts::FactRow& row, auto& member) {
    if (gone.holds(row.fact)) member = why;
  });
}

// The state that the threads share. Each job holds a reference, so the state outlives the jobs.
class FactCollection::Work : public std::enable_shared_from_this<Work> {
 public:
  Work(std::vector<FactTask> tasks, std::shared_ptr<const void> used, Workers& workers)
      : used_(std::move(used)), workers_(workers) {
    for (FactTask& task : tasks) entries_.emplace_back(std::move(task));
  }

  void begin(FactSet facts) {
    const MutexLock lock(mutex_);
    beginLocked(facts);
  }

  FactsRef await(FactSet facts);
  void cancel();

 private:
  struct Entry {  // with the mutex held, but for the task
    explicit Entry(FactTask one) : task(std::move(one)) {}
    const FactTask task;
    enum class State { unwanted, wanted, queued, settled } state = State::unwanted;
    Workers::JobRef job;
    std::optional<Clock::time_point> overdue;  // when the running task is abandoned
  };

  void beginLocked(FactSet facts) REQUIRES(mutex_);
  void queueWanted() REQUIRES(mutex_);
  void perform(Entry& entry);
  void settle(Entry& entry, const Found& found);
  void settleLocked(Entry& entry, const Found& found) REQUIRES(mutex_);
  void settleOverdue() REQUIRES(mutex_);
  bool isSettled(FactSet facts) const REQUIRES(mutex_);
  FactSet withDependencies(FactSet facts) const;
  std::optional<Clock::time_point> nextOverdue() const REQUIRES(mutex_);

  const std::shared_ptr<const void> used_;
  Workers& workers_;
  std::stop_source cancellation_;
  Mutex mutex_;
  std::condition_variable_any changed_;
  FactsRef facts_ GUARDED_BY(mutex_) = std::make_shared<const Facts>();
  // Neither added nor removed.
  std::list<Entry> entries_;
  std::list<FactSet> awaited_ GUARDED_BY(mutex_);  // with their dependencies
};

FactSet FactCollection::Work::withDependencies(FactSet facts) const {
  FactSet all = facts;
  for (const Entry& entry : entries_) {
    if (entry.task.gives.meets(all)) all = all.with(entry.task.after);
  }
  return all == facts ? all : withDependencies(all);
}

void FactCollection::Work::beginLocked(FactSet facts) {
  const FactSet all = withDependencies(facts);
  for (Entry& entry : entries_) {
    if (entry.state == Entry::State::unwanted && entry.task.gives.meets(all)) {
      entry.state = Entry::State::wanted;
    }
  }
  queueWanted();
}

// A task that depends on others occupies no worker while it waits for them.
void FactCollection::Work::queueWanted() {
  if (cancellation_.stop_requested()) return;
  for (Entry& entry : entries_) {
    if (entry.state != Entry::State::wanted || !isSettled(entry.task.after)) continue;
    entry.state = Entry::State::queued;
    entry.job = workers_.run([work = shared_from_this(), &entry] { work->perform(entry); });
    if (!entry.job) {
      return settleLocked(entry, [&entry](Facts& facts) {
        forget(facts, entry.task.gives,
               {Reason::failed,
                "The system has no threads left: close other programs, and try again."});
      });
    }
    if (std::ranges::any_of(awaited_, [&](FactSet one) { return one.meets(entry.task.gives); })) {
      workers_.hasten(entry.job);
    }
  }
}

void FactCollection::Work::perform(Entry& entry) {
  FactsRef known;
  {
    const MutexLock lock(mutex_);
    if (cancellation_.stop_requested()) return;
    known = facts_;
    entry.overdue = Clock::now() + entry.task.limit + kGrace;
  }
  changed_.notify_all();  // waiting threads have one more time to watch
  const auto failed = [&entry](const std::string& why) -> Found {
    return [&entry, error = Error{Reason::failed, "The " + entry.task.name + " failed (" + why +
                                                      "): close other programs, and try again."}](
               Facts& facts) { forget(facts, entry.task.gives, error); };
  };
  try {
    settle(entry,
           entry.task.run(*known, Deadline::in(entry.task.limit, cancellation_.get_token())));
  } catch (const std::exception& exception) {
    settle(entry, failed(exception.what()));
  } catch (...) {
    settle(entry, failed("for a reason that is not known"));
  }
}

void FactCollection::Work::settle(Entry& entry, const Found& found) {
  const MutexLock lock(mutex_);
  if (entry.state != Entry::State::settled && !cancellation_.stop_requested()) {
    settleLocked(entry, found);
  }
}

void FactCollection::Work::settleLocked(Entry& entry, const Found& found) {
  auto facts = std::make_shared<Facts>(*facts_);
  found(*facts);
  facts_ = std::move(facts);
  entry.state = Entry::State::settled;
  changed_.notify_all();
  queueWanted();
}

FactCollection::FactsRef FactCollection::Work::await(FactSet facts) {
  MutexLock lock(mutex_);
  const auto awaited = awaited_.insert(awaited_.end(), withDependencies(facts));
  beginLocked(facts);
  for (Entry& entry : entries_) {
    if (entry.job && entry.task.gives.meets(*awaited)) workers_.hasten(entry.job);
  }
  while (!cancellation_.stop_requested() && !isSettled(facts)) {
    if (const auto overdue = nextOverdue()) {
      changed_.wait_until(mutex_, *overdue);
      settleOverdue();
    } else {
      changed_.wait(mutex_);
    }
  }
  awaited_.erase(awaited);
  return cancellation_.stop_requested() ? nullptr : facts_;
}

void FactCollection::Work::cancel() {
  const MutexLock lock(mutex_);
  cancellation_.request_stop();
  for (const Entry& entry : entries_) workers_.retract(entry.job);
  changed_.notify_all();
}

bool FactCollection::Work::isSettled(FactSet facts) const {
  return std::ranges::all_of(entries_, [&](const Entry& entry) {
    return entry.state == Entry::State::settled || !entry.task.gives.meets(facts);
  });
}

std::optional<Clock::time_point> FactCollection::Work::nextOverdue() const {
  std::optional<Clock::time_point> next;
  for (const Entry& entry : entries_) {
    if (!entry.overdue || entry.state == Entry::State::settled) continue;
    next = std::min(next.value_or(*entry.overdue), *entry.overdue);
  }
  return next;
}

void FactCollection::Work::settleOverdue() {
  for (Entry& entry : entries_) {
    if (entry.state == Entry::State::settled || !entry.overdue) continue;
    if (Clock::now() < *entry.overdue) continue;
    workers_.abandon(entry.job);
    settleLocked(entry, [&entry](Facts& facts) {
      forget(facts, entry.task.gives,
             {Reason::tookTooLong,
              "The " + entry.task.name + " took too long: try again in a while."});
    });
  }
}

FactCollection::FactCollection(std::vector<FactTask> tasks, std::shared_ptr<const void> used,
                               Workers& workers)
    : work_(std::make_shared<Work>(std::move(tasks), std::move(used), workers)) {}

FactCollection::~FactCollection() { work_->cancel(); }

void FactCollection::begin(FactSet facts) { work_->begin(facts); }
FactCollection::FactsRef FactCollection::await(FactSet facts) { return work_->await(facts); }
void FactCollection::cancel() { work_->cancel(); }

}  // namespace wifi_profile::linux
