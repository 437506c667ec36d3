#include "report/OutcomeCollector.h"

namespace wifi_profile::report {

CollectedOutcomes OutcomeCollector::collected() const {
  const MutexLock lock(mutex_);
  return collected_;
}

void OutcomeCollector::statusWasQueried(const std::optional<Error>& error) {
  const MutexLock lock(mutex_);
  if (!ended_ && !testsBegan_) collected_.statusError = error;
}

void OutcomeCollector::testStarted(Section section, DiagnosticsTestID test) {
  const MutexLock lock(mutex_);
  if (ended_) return;
  if (section == Section::device) testsBegan_ = true;
  collected_.tests.try_emplace({section, test});
}

void OutcomeCollector::testEnded(const TestOutcome& outcome) {
  const MutexLock lock(mutex_);
  if (ended_) return;
  auto& latest = collected_.tests[{outcome.section, outcome.test}];
  if (!latest || outcome.verdict || !latest->verdict) latest = outcome;
}

void OutcomeCollector::runEnded() {
  const MutexLock lock(mutex_);
  ended_ = true;
}

}  // namespace wifi_profile::report
