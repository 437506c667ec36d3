// Who draws the toolkit's state. It is told of what happens and looks at the views for the rest.
#pragma once

#include <memory>

#include "platform/Installed.h"
#include "platform/Interface.h"

namespace wifi_profile::toolkit {

class ProgressView;
class View;
class ViewController;
struct LayoutConstraint;

// Every call comes on the main thread, after the change it tells of.
class Screen : public Interface {
 public:
  static std::shared_ptr<Screen> shared() { return Installed<Screen>::get(); }

  // A layout pass is wanted: the screen calls the controller's `updateViewConstraints` once, soon,
  // from work of its own on the main queue.
  virtual void needsLayout(const std::shared_ptr<ViewController>& controller) = 0;
  virtual void constraintWasAdded(const View& holder, const LayoutConstraint& constraint) = 0;
  virtual void progressWasSet(const ProgressView& progressView) = 0;
};

}  // namespace wifi_profile::toolkit
