// One run of the diagnostic on a device, from set-up to the last drained work.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "controller/WiFiProfileViewController.h"
#include "devices/scenario/ScenarioDevice.h"
#include "host/ProgressLine.h"
#include "host/ReportDocument.h"
#include "host/Script.h"
#include "host/TraceFile.h"
#include "host/WatchedScans.h"
#include "platform/NameCollator.h"
#include "platform/StringTable.h"
#include "runtime/RunLoop.h"
#include "screens/PersonScreen.h"

namespace wifi_profile {

enum class Ending {
  finished,     // the diagnostic said so; there is an outcome
  tornDown,     // by the script or on the screen, before it finished
  interrupted,  // by a signal, before it finished
  stuck,        // the script cannot go on
};

// The device of a run.
struct RunDevice {
  DeviceBackEnds backEnds;
  // For a device on paper: its parts that a script works on, and the script.
  std::optional<scenario::ScenarioDevice> paper = std::nullopt;
  std::vector<scenario::Step> user = {};
  // For a machine: the host tears the run down, and nothing more is to be found out.
  std::function<void()> close = [] {};
  std::string site = {};  // address of the page that it tries to reach; empty: not known
};

// `pace` and `trace` must outlive the device.
RunDevice onPaper(const scenario::Scenario& scenario, Pace& pace, Trace& trace);

// What a run needs of its host.
struct Surroundings {
  RunLoop& loop;
  TraceFile& trace;
  ProgressLine& line;
  std::shared_ptr<StringTable> texts;
  std::shared_ptr<NameCollator> collator;
  // null: nothing is drawn, and the script's user does everything. `loop` must wait on its queue.
  std::shared_ptr<PersonScreen> person = nullptr;
};

// Installs the back ends for as long as it lives, drives the run, and keeps its outcome as it stood
// when the diagnostic first finished. One at a time in a process.
class DiagnosticRun final : public HxDiagnosticObserver,
                            public std::enable_shared_from_this<DiagnosticRun> {
 public:
  DiagnosticRun(RunDevice device, std::shared_ptr<WiFiProfileInputs> inputs,
                Surroundings surroundings);
  ~DiagnosticRun() override;

  // Main thread, once. Returns when everything has been drained.
  Ending run();

  // Any thread: ends the run early, through the host's `teardown`, unless it has finished; what is
  // left to do then waits for nothing.
  void interrupt();

  // Any thread, while there is a person: `label` of the test that is under way now; empty: the same
  // as before.
  void showTests(std::string label);
  void personDid(scenario::Action action);

  // After `run`: the outcome of a finished one, the reason of a stuck one.
  const Outcome& outcome() const { return *outcome_; }
  std::string reason() const;

  void statusCodeWasSet(const NumberRef& statusCode) override;
  void dataWasSet(const DictionaryRef& data) override;
  void finishedWasSet(bool finished) override;

 private:
  struct Installations;

  void start();
  void tearDown();
  void endEarly();
  bool isOver() const;
  void whileServing(DiagnosticsTestID test);
  void showEmptyList();
  void askForPower();
  std::optional<std::string> perform(const scenario::Step& step);

  Surroundings surroundings_;
  RunDevice device_;
  std::shared_ptr<WatchedScans> scans_;
  std::unique_ptr<Installations> installations_;
  std::shared_ptr<WiFiProfileInputs> inputs_;
  std::shared_ptr<WiFiProfileViewController> controller_;
  Script script_;

  std::atomic<bool> interrupted_ = false;
  bool stuck_ = false;        // main thread only
  std::string runningTest_;   // main thread only
  EmptyList shownEmptyList_;  // main thread only; as the person's screen was told
  mutable std::mutex mutex_;  // guards what follows
  std::optional<Outcome> outcome_;
  bool tornDown_ = false;
};

}  // namespace wifi_profile
