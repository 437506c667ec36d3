// The interface of an interactive screen.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "diagnostic/platform/toolkit/Screen.h"
#include "report/Report.h"
#include "runtime/MainQueue.h"

namespace wifi_profile::toolkit {
class ViewController;
}

namespace wifi_profile::app {

// The progress of the tests.
struct TestsDone {
  int done = 0;
  int total = 0;        // 0: none has begun
  std::string running;  // label of the test under way; empty: none
};

// Why the list of networks is empty.
struct EmptyList {
  enum class Why {
    notKnownYet,
    noneInRange,
    onlyHiddenInRange,
    noOtherInRange,  // no network other than the joined or selected one
    scanFailed,
    radioOff,
    powerOnFailed
  };
  Why why = Why::notKnownYet;
  std::string reason;  // readable reason of a failure; may be empty
  // Asks again whether to turn the radio on. Empty: there is no question to ask.
  std::function<void()> askForPower;
};

// Draws the view of one controller and passes the person's actions to it; later shows a report.
// Takes texts from the installed string table. The person's actions are handled in the main queue's
// `handleNext`. Main thread only, except `abandon`.
class PersonScreen : public toolkit::Screen {
 public:
  // Returns the queue that the main thread must wait on while the screen exists.
  virtual std::shared_ptr<runtime::MainQueue> mainQueue() const = 0;

  // Shows the controller's view from now on. `askedToStop` is called at most once, if the person
  // wants to end the run before it has finished.
  virtual void show(std::shared_ptr<toolkit::ViewController> controller,
                    std::function<void()> askedToStop) = 0;

  virtual void showTests(const TestsDone& tests) = 0;

  // Call when the state changes.
  virtual void showEmptyList(EmptyList state) = 0;

  // Shows the report after the run, until the person closes it.
  virtual void showReport(report::Report report) = 0;

  // Removes the screen and restores the terminal. Further calls have no effect.
  virtual void close() = 0;
  // Returns true if the report or the screen was closed.
  virtual bool isClosed() const = 0;

  // Any thread. Call immediately before the process exits: restores only what would outlive the
  // process, such as the terminal's modes.
  virtual void abandon() = 0;
};

}  // namespace wifi_profile::app
