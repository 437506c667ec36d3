// The user of a scenario's device: performs the steps of the scenario's script in order.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "devices/scenario/Scenario.h"
#include "diagnostic/platform/Mutex.h"
#include "diagnostic/platform/Result.h"
#include "diagnostic/platform/RunObserver.h"

namespace wifi_profile::cli {

// What performs the script's steps on the screen: the script itself, or a person. With a person,
// the script waits at each such step until the person has performed an action of the same kind;
// scroll steps are skipped. The script always performs the world's steps: the radio's switch,
// waiting, and the host's teardown.
enum class ScreenUser { script, person };

// Keeps the position in a script. `perform` performs steps on the main thread and returns why a
// step cannot be performed. Any thread.
class Script {
 public:
  using Perform = std::function<Status(const scenario::Step&)>;

  Script(std::vector<scenario::Step> steps, ScreenUser user, Perform perform);

  // Ends the script: the remaining steps are ignored.
  void end();

  // Reports an action of the person. Completes the next step if it is of the same kind; the row of
  // a tap does not matter.
  void personDid(PersonAction action);

  // Returns true if the next step is the script's and is to be performed while the run is idle.
  bool hasIdleStep() const;
  // Returns true if the next step is the script's and is to be performed while `test` is served.
  bool hasStepDuring(DiagnosticsTestID test) const;

  // Performs the next step and advances, unless the script has ended. Main thread.
  void performNextStep();

  // Returns why a step failed. The subject is the step's place in the scenario.
  Status status() const;

  // Returns why an idle, unfinished run cannot continue: no steps are left, or the next step waits
  // for a test.
  std::string reasonForBeingStuck() const;

 private:
  bool isScripted(const scenario::Step& step) const;

  std::vector<scenario::Step> steps_;  // never changes
  const ScreenUser user_;
  const Perform perform_;
  mutable Mutex mutex_;
  std::size_t next_ GUARDED_BY(mutex_) = 0;
  bool ended_ GUARDED_BY(mutex_) = false;
  Status status_ GUARDED_BY(mutex_);
};

}  // namespace wifi_profile::cli
