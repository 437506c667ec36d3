#include "devices/linux/Gathering.h"

#include <algorithm>
#include <condition_variable>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "devices/linux/LeftThreads.h"

namespace wifi_profile::linux {
namespace {

using checks::FactSet;
using facts::Fact;
using facts::Facts;

void forgetOne(facts::Facts& facts, facts::Fact fact, const Error& why) {
  switch (fact) {
    case facts::Fact::link:
      facts.link = why;
      return;
    case facts::Fact::scan:
      facts.scan = why;
      return;
    case facts::Fact::surveys:
      facts.surveys = why;
      return;
    case facts::Fact::radio:
      facts.radio = why;
      return;
    case facts::Fact::regulatory:
      facts.regulatory = why;
      return;
    case facts::Fact::addresses:
      facts.addresses = why;
      return;
    case facts::Fact::activeProfile:
      facts.activeProfile = why;
      return;
    case facts::Fact::savedNetworks:
      facts.savedNetworks = why;
      return;
    case facts::Fact::sessionProxy:
      facts.sessionProxy = why;
      return;
    case facts::Fact::bluetooth:
      facts.bluetooth = why;
      return;
    case facts::Fact::coexistence:
      facts.coexistence = why;
      return;
    case facts::Fact::lanPings:
      facts.lanPings = why;
      return;
    case facts::Fact::wanPings:
      facts.wanPings = why;
      return;
    case facts::Fact::nameResolution:
      facts.nameResolution = why;
      return;
    case facts::Fact::portalProbe:
      facts.portalProbe = why;
      return;
    case facts::Fact::siteReach:
      facts.siteReach = why;
      return;
    case facts::Fact::sitePage:
      facts.sitePage = why;
      return;
    case facts::Fact::routerOutside:
      facts.routerOutside = why;
      return;
  }
}

}  // namespace

void forget(facts::Facts& facts, checks::FactSet gone, const Error& why) {
  for (int fact = 0; fact < facts::kFactCount; ++fact) {
    if (gone.holds(facts::Fact(fact))) forgetOne(facts, facts::Fact(fact), why);
  }
}

// The state that the threads share. Each thread holds a reference, so the state outlives the
// threads.
class Gathering::Work : public std::enable_shared_from_this<Work> {
 public:
  Work(std::vector<Errand> errands, std::shared_ptr<const void> used) : used_(std::move(used)) {
    for (Errand& errand : errands) tasks_.emplace_back(std::move(errand));
  }

  void begin(checks::FactSet facts) {
    const std::lock_guard lock(mutex_);
    beginLocked(facts);
  }

  std::optional<facts::Facts> await(checks::FactSet facts);
  void cancel();
  void end();

 private:
  struct Task {
    explicit Task(Errand one) : errand(std::move(one)) {}
    Errand errand;
    std::thread thread;                        // joinable: it was started
    std::optional<Clock::time_point> overdue;  // when the running task is abandoned
    bool settled = false;
    bool ended = false;  // its thread is done
  };

  void beginLocked(checks::FactSet facts);
  void giveUpLocked(Task& task, const Error& why);
  void perform(Task& task);
  void settle(Task& task, const Found& found);
  void settleOverdue();
  bool isSettled(checks::FactSet facts) const;
  std::optional<Clock::time_point> nextOverdue() const;

  const std::shared_ptr<const void> used_;
  Cancellation cancellation_;
  std::mutex mutex_;  // guards what follows
  std::condition_variable changed_;
  facts::Facts facts_;
  std::list<Task> tasks_;
};

void Gathering::Work::beginLocked(checks::FactSet facts) {
  if (cancellation_.isCancelled()) return;
  for (Task& task : tasks_) {
    if (task.settled || task.thread.joinable() || !task.errand.gives.meets(facts)) continue;
    try {
      task.thread = std::thread([work = shared_from_this(), &task] {
        work->perform(task);
        const std::lock_guard lock(work->mutex_);
        task.ended = true;
        work->changed_.notify_all();
      });
    } catch (const std::system_error&) {
      giveUpLocked(task, {Reason::failed,
                          "The system has no threads left: close other programs, and try again."});
      continue;
    }
    beginLocked(task.errand.after);
  }
}

void Gathering::Work::giveUpLocked(Task& task, const Error& why) {
  forget(facts_, task.errand.gives, why);
  task.settled = true;
  changed_.notify_all();
}

void Gathering::Work::perform(Task& task) {
  facts::Facts known;
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock,
                  [&] { return cancellation_.isCancelled() || isSettled(task.errand.after); });
    if (cancellation_.isCancelled()) return;
    known = facts_;
    task.overdue = Clock::now() + task.errand.limit + kGrace;
  }
  changed_.notify_all();  // waiting threads have one more time to watch
  const auto failed = [&task](const std::string& why) -> Found {
    const Error unknown{Reason::failed, "The " + task.errand.name + " failed (" + why +
                                            "): close other programs, and try again."};
    return [gives = task.errand.gives, unknown](facts::Facts& facts) {
      forget(facts, gives, unknown);
    };
  };
  try {
    settle(task, task.errand.run(known, {Clock::now() + task.errand.limit, cancellation_}));
  } catch (const std::exception& exception) {
    settle(task, failed(exception.what()));
  } catch (...) {
    settle(task, failed("for a reason that is not known"));
  }
}

void Gathering::Work::settle(Task& task, const Found& found) {
  const std::lock_guard lock(mutex_);
  task.overdue.reset();
  if (task.settled || cancellation_.isCancelled()) return;
  found(facts_);
  task.settled = true;
  changed_.notify_all();
}

std::optional<facts::Facts> Gathering::Work::await(checks::FactSet facts) {
  std::unique_lock lock(mutex_);
  beginLocked(facts);
  while (!cancellation_.isCancelled() && !isSettled(facts)) {
    if (const auto overdue = nextOverdue()) {
      changed_.wait_until(lock, *overdue);
      settleOverdue();
    } else {
      changed_.wait(lock);
    }
  }
  if (cancellation_.isCancelled()) return std::nullopt;
  return facts_;
}

void Gathering::Work::cancel() {
  const std::lock_guard lock(mutex_);
  cancellation_.cancel();
  changed_.notify_all();
}

void Gathering::Work::end() {
  cancel();
  std::unique_lock lock(mutex_);
  const auto isOver = [](const Task& task) { return task.ended || !task.thread.joinable(); };
  changed_.wait_for(lock, kEndLimit,
                    [&] { return std::all_of(tasks_.begin(), tasks_.end(), isOver); });
  std::vector<std::thread> ended;
  for (Task& task : tasks_) {
    if (!task.thread.joinable()) continue;
    if (task.ended) {
      ended.push_back(std::move(task.thread));
    } else {
      leaveBehind(std::move(task.thread));
    }
  }
  lock.unlock();
  for (std::thread& thread : ended) thread.join();
}

bool Gathering::Work::isSettled(checks::FactSet facts) const {
  return std::all_of(tasks_.begin(), tasks_.end(), [&](const Task& task) {
    return task.settled || !task.errand.gives.meets(facts);
  });
}

std::optional<Clock::time_point> Gathering::Work::nextOverdue() const {
  std::optional<Clock::time_point> next;
  for (const Task& task : tasks_) {
    if (task.overdue && !task.settled) next = std::min(next.value_or(*task.overdue), *task.overdue);
  }
  return next;
}

void Gathering::Work::settleOverdue() {
  for (Task& task : tasks_) {
    if (task.settled || !task.overdue || Clock::now() < *task.overdue) continue;
    giveUpLocked(task, {Reason::tookTooLong,
                        "The " + task.errand.name + " took too long: try again in a while."});
  }
}

Gathering::Gathering(std::vector<Errand> errands, std::shared_ptr<const void> used)
    : work_(std::make_shared<Work>(std::move(errands), std::move(used))) {}

Gathering::~Gathering() { work_->end(); }

void Gathering::begin(checks::FactSet facts) { work_->begin(facts); }
std::optional<facts::Facts> Gathering::await(checks::FactSet facts) { return work_->await(facts); }
void Gathering::cancel() { work_->cancel(); }

}  // namespace wifi_profile::linux
