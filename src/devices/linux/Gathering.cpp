#include "devices/linux/Gathering.h"

#include <algorithm>
#include <system_error>

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::Facts;
using checks::FactSet;

void forget(Facts& facts, Fact fact, const checks::Unknown& why) {
  switch (fact) {
    case Fact::link:
      facts.link = why;
      return;
    case Fact::scan:
      facts.scan = why;
      return;
    case Fact::surveys:
      facts.surveys = why;
      return;
    case Fact::radio:
      facts.radio = why;
      return;
    case Fact::regulatory:
      facts.regulatory = why;
      return;
    case Fact::addresses:
      facts.addresses = why;
      return;
    case Fact::activeProfile:
      facts.activeProfile = why;
      return;
    case Fact::savedNetworks:
      facts.savedNetworks = why;
      return;
    case Fact::sessionProxy:
      facts.sessionProxy = why;
      return;
    case Fact::bluetooth:
      facts.bluetooth = why;
      return;
    case Fact::coexistence:
      facts.coexistence = why;
      return;
    case Fact::lanPings:
      facts.lanPings = why;
      return;
    case Fact::wanPings:
      facts.wanPings = why;
      return;
    case Fact::nameResolution:
      facts.nameResolution = why;
      return;
    case Fact::portalProbe:
      facts.portalProbe = why;
      return;
    case Fact::siteReach:
      facts.siteReach = why;
      return;
    case Fact::sitePage:
      facts.sitePage = why;
      return;
    case Fact::routerOutside:
      facts.routerOutside = why;
      return;
  }
}

void forgetAll(Facts& facts, FactSet gone, const checks::Unknown& why) {
  for (int fact = 0; fact < checks::kFactCount; ++fact) {
    if (gone.holds(Fact(fact))) forget(facts, Fact(fact), why);
  }
}

}  // namespace

Gathering::Gathering(std::vector<Errand> errands) {
  for (Errand& errand : errands) tasks_.emplace_back(std::move(errand));
}

Gathering::~Gathering() {
  cancel();
  for (Task& task : tasks_) {
    if (task.thread.joinable()) task.thread.join();
  }
}

void Gathering::begin(FactSet facts) {
  const std::lock_guard lock(mutex_);
  beginLocked(facts);
}

void Gathering::beginLocked(FactSet facts) {
  if (cancellation_.isCancelled()) return;
  for (Task& task : tasks_) {
    if (task.settled || task.thread.joinable() || !task.errand.gives.meets(facts)) continue;
    try {
      task.thread = std::thread([this, &task] { perform(task); });
    } catch (const std::system_error&) {
      giveUpLocked(task, {checks::Reason::failed,
                          "The system has no threads left: close other programs, and try again."});
      continue;
    }
    beginLocked(task.errand.after);
  }
}

void Gathering::giveUpLocked(Task& task, const checks::Unknown& why) {
  forgetAll(facts_, task.errand.gives, why);
  task.settled = true;
  changed_.notify_all();
}

void Gathering::perform(Task& task) {
  Facts known;
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock,
                  [&] { return cancellation_.isCancelled() || isSettled(task.errand.after); });
    if (cancellation_.isCancelled()) return;
    known = facts_;
    task.overdue = Clock::now() + task.errand.limit + kGrace;
  }
  changed_.notify_all();  // those who wait have one more to look after
  const Found found = task.errand.run(known, {Clock::now() + task.errand.limit, cancellation_});
  {
    const std::lock_guard lock(mutex_);
    task.overdue.reset();
    if (task.settled || cancellation_.isCancelled()) return;
    found(facts_);
    task.settled = true;
  }
  changed_.notify_all();
}

std::optional<Facts> Gathering::await(FactSet facts) {
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

void Gathering::cancel() {
  {
    const std::lock_guard lock(mutex_);
    cancellation_.cancel();
  }
  changed_.notify_all();
}

bool Gathering::isSettled(FactSet facts) const {
  return std::all_of(tasks_.begin(), tasks_.end(), [&](const Task& task) {
    return task.settled || !task.errand.gives.meets(facts);
  });
}

std::optional<Clock::time_point> Gathering::nextOverdue() const {
  std::optional<Clock::time_point> next;
  for (const Task& task : tasks_) {
    if (task.overdue && !task.settled) next = std::min(next.value_or(*task.overdue), *task.overdue);
  }
  return next;
}

void Gathering::settleOverdue() {
  for (Task& task : tasks_) {
    if (task.settled || !task.overdue || Clock::now() < *task.overdue) continue;
    giveUpLocked(task, {checks::Reason::tookTooLong,
                        "The " + task.errand.name + " took too long: try again in a while."});
  }
}

}  // namespace wifi_profile::machine
