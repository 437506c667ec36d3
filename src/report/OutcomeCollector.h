// Collects the outcomes of a run's tests, for the report.
#pragma once

#include <map>
#include <optional>
#include <utility>

#include "diagnostic/platform/Mutex.h"
#include "diagnostic/platform/RunObserver.h"

namespace wifi_profile::report {

// The tests of a run.
struct CollectedOutcomes {
  // Every test that was started. Empty: it has not ended. A test that ran several times has its
  // latest verdict, or its latest error if it never had a verdict.
  std::map<std::pair<Section, DiagnosticsTestID>, std::optional<TestOutcome>> tests = {};
  // Why the last status query before the tests of the device failed; empty: it succeeded.
  std::optional<Error> statusError = {};
};

// Ignores all events after the end of the run. Any thread.
class OutcomeCollector final : public RunObserver {
 public:
  CollectedOutcomes collected() const;

  void statusWasQueried(const std::optional<Error>& error) override;
  void testStarted(Section section, DiagnosticsTestID test) override;
  void testEnded(const TestOutcome& outcome) override;
  void runEnded() override;

 private:
  mutable Mutex mutex_;
  CollectedOutcomes collected_ GUARDED_BY(mutex_);
  bool testsBegan_ GUARDED_BY(mutex_) = false;
  bool ended_ GUARDED_BY(mutex_) = false;
};

}  // namespace wifi_profile::report
