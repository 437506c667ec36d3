// The user of a device on paper: does what the scenario's script says, one step after another.
#pragma once

#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "devices/scenario/Scenario.h"

namespace wifi_profile {

// Who does what a script says on the screen: the script itself, or a person. A person is waited for
// at each such step until they have done something of its kind; what scrolls by itself is passed
// over. What the world does (the radio's switch, time, the host's teardown) the script does in any
// case.
enum class ScreenUser { script, person };

// Keeps the place in a script. Steps are performed on the main thread by `perform`, which returns
// what is in the way of a step that cannot be done. Any thread.
class Script {
 public:
  using Perform = std::function<std::optional<std::string>(const scenario::Step&)>;

  Script(std::vector<scenario::Step> steps, ScreenUser user, Perform perform);

  // The script is over: left-over steps are ignored.
  void end();

  // The person has done something on the screen: a step of its kind is done with. Which row was
  // tapped does not matter.
  void personDid(scenario::Action action);

  // Whether there is a step to be done at this idle moment.
  bool hasIdleStep() const;
  // Whether the next step is to be done while `test` is served.
  bool hasStepDuring(DiagnosticsTestID test) const;

  // Performs the next step, if the script is not over, and goes on to the one after it. Main
  // thread.
  void performNextStep();

  // Why the script could not go on, with the place of the step; nothing so far otherwise.
  std::optional<std::string> failure() const;

  // Why a run that is idle and unfinished cannot go on: out of steps, or waiting for a test.
  std::string reasonForBeingStuck() const;

 private:
  bool isScripted(const scenario::Step& step) const;

  std::vector<scenario::Step> steps_;  // never changes
  const ScreenUser user_;
  const Perform perform_;
  mutable std::mutex mutex_;  // guards what follows
  std::size_t next_ = 0;
  bool ended_ = false;
  std::optional<std::string> failure_;
};

}  // namespace wifi_profile
