// A screen that a person looks at and acts on.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/toolkit/Screen.h"
#include "runtime/MainQueue.h"
#include "screens/Report.h"

namespace wifi_profile {

namespace toolkit {
class ViewController;
}

// How far the tests are.
struct TestsDone {
  int done = 0;
  int total = 0;        // 0: none has begun
  std::string running;  // label of the test under way; empty: none
};

// What there is to say while the list of networks is empty.
struct EmptyList {
  enum class Why {
    notKnownYet,
    noneInRange,
    onlyHiddenInRange,
    noOtherInRange,  // than the joined or the selected network
    scanFailed,
    radioOff,
    powerOnFailed
  };
  Why why = Why::notKnownYet;
  std::string reason;  // of a failure, for people; may be empty
  // Asks again whether to turn the radio on. Empty: there is nothing to ask.
  std::function<void()> askForPower;
};

// Draws the view of one controller and lets a person do what can be done there; then a report.
// Texts come from the installed string table. What a person does arrives in the main queue's
// `handleNext`. Main thread only, but for `abandon`.
class PersonScreen : public toolkit::Screen {
 public:
  // What the main thread has to wait on while this screen is there.
  virtual std::shared_ptr<MainQueue> mainQueue() const = 0;

  // `askedToStop` is called, at most once, when the person wants the run to end before it has
  // finished. The view is shown from now on.
  virtual void show(std::shared_ptr<toolkit::ViewController> controller,
                    std::function<void()> askedToStop) = 0;

  virtual void showTests(const TestsDone& tests) = 0;

  // Called when the state changes.
  virtual void showEmptyList(EmptyList state) = 0;

  // The run is over: shows the report, until the person closes it.
  virtual void showReport(Report report) = 0;

  // The screen goes: it shows nothing any more, and a terminal is as it was. Nothing when called
  // again.
  virtual void close() = 0;
  // Whether the report, or the screen, was closed.
  virtual bool isClosed() const = 0;

  // Any thread: the process is about to end at once. Only what must not stay behind is put right.
  virtual void abandon() = 0;
};

}  // namespace wifi_profile
