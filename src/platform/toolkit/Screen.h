// Who draws the toolkit's state. It is told of what happens and looks at the views for the rest.
#pragma once

#include <memory>

#include "platform/Installed.h"
#include "platform/Interface.h"
#include "platform/toolkit/Geometry.h"
#include "platform/toolkit/TableEvent.h"

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

// Every call comes on the main thread, after the change it tells of, unless it says otherwise.
class Screen : public Interface {
 public:
  static std::shared_ptr<Screen> shared() { return Installed<Screen>::get(); }

  // In points. New controllers' views are made that large.
  virtual Size size() const = 0;

  // A layout pass is wanted: the screen calls the controller's `layOut` once, soon, from work of
  // its own on the main queue.
  virtual void needsLayout(const std::shared_ptr<ViewController>& controller) = 0;

  // What happens; a screen that has no use for it leaves it be.
  virtual void constraintWasAdded(const View& /*holder*/, const LayoutConstraint& /*constraint*/) {}
  virtual void progressWasSet(const ProgressView& /*progressView*/) {}
  // Told of every operation on a table when it is called; within a batch the rows have not changed
  // by then.
  virtual void tableDid(const TableEvent& /*event*/) {}
  virtual void buttonWasEnabled(const BarButtonItem& /*button*/) {}
  virtual void buttonWasRemoved() {}
  virtual void spinnerWasSwitched(const Spinner& /*spinner*/) {}
  virtual void refreshWasInstalled() {}
  // A person has pulled; before what the pull is for.
  virtual void refreshBegan() {}
  virtual void refreshEnded() {}
  virtual void alertWasPresented(const Alert& /*alert*/) {}
  // After what the edit gave rise to.
  virtual void alertTextWasEdited(const Alert& /*alert*/) {}
  // Before the alert is dismissed and the action is done.
  virtual void alertActionWasTapped(const Alert& /*alert*/, const AlertAction& /*action*/) {}
  // The alert is off the screen, answered or not; before its action is done.
  virtual void alertWasDismissed(const Alert& /*alert*/) {}
};

}  // namespace wifi_profile::toolkit
