// One run of the diagnostic on a device, from set-up until all queued work has been done.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/PersonScreen.h"
#include "app/cli/ProgressLine.h"
#include "app/cli/RunDevice.h"
#include "app/cli/Script.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/Mutex.h"
#include "diagnostic/platform/NameCollator.h"
#include "diagnostic/platform/StringTable.h"
#include "report/ReportDocument.h"
#include "runtime/RunLoop.h"

namespace wifi_profile::cli {

enum class Ending {
  finished,     // the diagnostic finished; there is an outcome
  tornDown,     // ended by the script or on the screen, before it finished
  interrupted,  // ended by a signal, before it finished
  stuck,        // the script cannot go on
};

// What a run needs from the host.
struct Surroundings {
  runtime::RunLoop& loop;
  ProgressLine& line;
  StringTable& texts;
  NameCollator& collator;
  // null: no screen is drawn, and the script performs all actions of the user. Otherwise `loop`
  // must wait on this screen's main queue.
  std::shared_ptr<app::PersonScreen> person = nullptr;
};

// Installs the back ends for its lifetime, drives the run, and keeps the outcome as it was when the
// diagnostic first finished. Passes the events of the run on to the collector of outcomes, to the
// progress line, and to the person's screen and the script. One instance at a time in a process.
class DiagnosticRun final : public HxDiagnosticObserver,
                            public RunObserver,
                            public std::enable_shared_from_this<DiagnosticRun> {
 public:
  DiagnosticRun(std::unique_ptr<RunDevice> device, std::shared_ptr<WiFiProfileInputs> inputs,
                Surroundings surroundings);
  ~DiagnosticRun() override;

  // Main thread, once. Returns when all queued work has been done.
  Ending run();

  // Any thread. Ends the run early, through the host's `teardown`, unless it has finished.
  // Remaining work then no longer waits.
  void interrupt();

  // After `run`: a finished run with its three sections as they were when it finished, and the
  // reason why a run is stuck.
  const report::FinishedRun& finishedRun() const {
    const MutexLock lock(mutex_);
    return *finishedRun_;
  }
  const DictionaryRef& data() const {
    const MutexLock lock(mutex_);
    return data_;
  }
  std::string reason() const;

  void statusCodeWasSet(const NumberRef& statusCode) override;
  void dataWasSet(const DictionaryRef& data) override;
  void finishedWasSet(bool finished) override;

  void statusWasQueried(const std::optional<Error>& error) override;
  void testStarted(Section section, DiagnosticsTestID test) override;
  void testEnded(const TestOutcome& outcome) override;
  void progressed(std::int32_t done, std::int32_t total) override;
  void personDid(PersonAction action) override;
  void runEnded() override;

 private:
  struct Installations;

  void start();
  void tearDown();
  void endEarly();
  bool isOver() const;
  void whileServing(DiagnosticsTestID test);
  void showTests(std::function<void(app::TestsDone&)> change);
  void showEmptyList();
  void askForPower();
  Status perform(const scenario::Step& step);

  Surroundings surroundings_;
  const std::unique_ptr<RunDevice> device_;
  const devices::DeviceBackEnds backEnds_;
  report::OutcomeCollector collector_;
  Property<std::optional<TestOutcome>> latestScan_;  // for the list
  std::unique_ptr<Installations> installations_;
  std::shared_ptr<WiFiProfileInputs> inputs_;
  std::shared_ptr<WiFiProfileViewController> controller_;
  Script script_;

  std::atomic<bool> interrupted_ = false;
  bool stuck_ = false;             // main thread only
  app::TestsDone tests_;           // main thread only
  app::EmptyList shownEmptyList_;  // main thread only; the last state passed to the screen
  mutable Mutex mutex_;            // guards the members below
  std::optional<report::FinishedRun> finishedRun_ GUARDED_BY(mutex_);
  DictionaryRef data_ GUARDED_BY(mutex_);
  bool tornDown_ GUARDED_BY(mutex_) = false;
};

}  // namespace wifi_profile::cli
