// The interface of the code that draws the state of the toolkit. A screen is notified of events and
// reads everything else from the views.
#pragma once

#include <memory>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"
#include "diagnostic/platform/toolkit/Geometry.h"
#include "diagnostic/platform/toolkit/TableEvent.h"

namespace wifi_profile::toolkit {

class Alert;
class AlertAction;
class BarButtonItem;
class ProgressView;
class RefreshControl;
class Spinner;
class View;
class ViewController;
struct LayoutConstraint;

// Every call is made on the main thread, after the change that it reports, unless stated otherwise.
class Screen : public Interface {
 public:
  static Screen* shared() { return InstalledPlatform::get(&Platform::screen, "the screen"); }

  // In points. The view of a new controller has this size.
  virtual Size size() const = 0;

  // Requests a layout pass. The screen then calls `layOut` of the controller once, soon, from its
  // own work on the main queue.
  virtual void needsLayout(const std::shared_ptr<ViewController>& controller) = 0;

  // Events. A screen may ignore them.
  virtual void constraintWasAdded(const View& /*holder*/, const LayoutConstraint& /*constraint*/) {}
  virtual void progressWasSet(const ProgressView& /*progressView*/) {}
  // Called for every operation on a table, at the time of the operation. Within a batch the rows
  // have not changed yet.
  virtual void tableDid(const TableEvent& /*event*/) {}
  virtual void buttonWasEnabled(const BarButtonItem& /*button*/) {}
  virtual void buttonWasRemoved() {}
  virtual void spinnerWasSwitched(const Spinner& /*spinner*/) {}
  virtual void refreshWasInstalled() {}
  // The user has pulled. Called before the action of the control.
  virtual void refreshBegan() {}
  virtual void refreshEnded() {}
  virtual void alertWasPresented(const Alert& /*alert*/) {}
  // Called after the effects of the edit.
  virtual void alertTextWasEdited(const Alert& /*alert*/) {}
  // Called before the alert is dismissed and the handler of the action runs.
  virtual void alertActionWasTapped(const Alert& /*alert*/, const AlertAction& /*action*/) {}
  // The alert has left the screen, answered or not. Called before the handler of its action runs.
  virtual void alertWasDismissed(const Alert& /*alert*/) {}
};

}  // namespace wifi_profile::toolkit
