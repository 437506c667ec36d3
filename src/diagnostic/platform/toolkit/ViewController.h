// The controller of a screen and its view.
#pragma once

#include <memory>

#include "diagnostic/platform/toolkit/View.h"

namespace wifi_profile::toolkit {

class Alert;

enum class InterfaceOrientation { portrait = 1 };
// Bit masks of the orientations that a screen supports.
inline constexpr unsigned kPortraitOnly = 2;
inline constexpr unsigned kAllOrientations = 30;

// Main thread only.
class ViewController : public std::enable_shared_from_this<ViewController> {
 public:
  ViewController() = default;
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;
  virtual ~ViewController() = default;

  // Created on first use, with the size of the screen.
  const std::shared_ptr<View>& view();

  // Must be called when the view comes onto the screen: the tables that it contains read their
  // rows.
  void appear();
  // Must be called when the view leaves the screen for good: dismisses an alert over it without an
  // answer.
  void disappear();

  // The layout pass: updates the constraints, then computes from them the frames of the direct
  // subviews of the view, back to front. A subview whose frame stays as set is not moved.
  //
  // A constraint affects a subview if its other view, if any, is the view of the controller or a
  // subview that is not moved or is further back. Other constraints are ignored. Of several
  // equations for the same attribute the first counts. Along each axis, the size is the one that an
  // equation gives; else the distance of the two edges if equations give both; else the size of the
  // content, or without content the present size, raised to what inequalities require. The position
  // follows from the first that an equation gives of the leading (top) edge, the trailing (bottom)
  // edge and the centre; else it stays.
  void layOut();

  // Part of the layout pass. An override must call this implementation first.
  virtual void updateViewConstraints() {}

  virtual bool prefersStatusBarHidden() const { return false; }
  virtual bool shouldAutorotate() const { return true; }
  virtual unsigned supportedInterfaceOrientations() const { return kAllOrientations; }
  virtual InterfaceOrientation preferredInterfaceOrientationForPresentation() const {
    return InterfaceOrientation::portrait;
  }

  // Presents an alert over the view. If the view already has an alert, another one is dismissed at
  // once.
  void present(const std::shared_ptr<Alert>& alert, bool animated);
  // The alert over the view, or null.
  const std::shared_ptr<Alert>& presentedAlert() const { return presentedAlert_; }

 private:
  friend class Alert;
  std::shared_ptr<View> view_;
  std::shared_ptr<Alert> presentedAlert_;
};

}  // namespace wifi_profile::toolkit
