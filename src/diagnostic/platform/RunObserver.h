// An observer of a run: its tests, its progress and the person's actions, as typed events.
#pragma once

#include <cstdint>
#include <optional>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"
#include "diagnostic/platform/TestOutcome.h"

namespace wifi_profile {

// What a person does on the screen.
enum class PersonAction { tapRow, tapButton, pullToRefresh, type, tapAlertAction };

// Called on the thread that causes the event. The events of one test come in order; the scans of
// the network list run beside the tests of a run.
class RunObserver : public Interface {
 public:
  // A status query: the error, or empty if it succeeded.
  virtual void statusWasQueried(const std::optional<Error>& /*error*/) {}
  virtual void testStarted(Section /*section*/, DiagnosticsTestID /*test*/) {}
  virtual void testEnded(const TestOutcome& /*outcome*/) {}
  // `total` tests are planned, of which `done` have ended. First called before the first test.
  virtual void progressed(std::int32_t /*done*/, std::int32_t /*total*/) {}
  // Called before the action takes effect.
  virtual void personDid(PersonAction /*action*/) {}
  // The run is over: finished, or ended early. Work under way can still cause events afterwards,
  // such as the answers of cancelled tests.
  virtual void runEnded() {}
};

// Calls `event` with the installed observer. Does nothing if there is none.
template <class Event>
void notifyRunObserver(Event event) {
  if (const auto observer = InstalledPlatform::find(&Platform::observer)) event(*observer);
}

inline void reportPerson(PersonAction action) {
  notifyRunObserver([action](RunObserver& observer) { observer.personDid(action); });
}

}  // namespace wifi_profile
