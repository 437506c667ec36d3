// A screen's controller and the view it fills.
#pragma once

#include <memory>

#include "platform/toolkit/View.h"

namespace wifi_profile::toolkit {

class Alert;

enum class InterfaceOrientation { portrait = 1 };
// Bits of the orientations that a screen may take.
inline constexpr unsigned kPortraitOnly = 2;
inline constexpr unsigned kAllOrientations = 30;

// Main thread only.
class ViewController : public std::enable_shared_from_this<ViewController> {
 public:
  ViewController() = default;
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;
  virtual ~ViewController() = default;

  // Made when first asked for, as large as the screen.
  const std::shared_ptr<View>& view();

  // The view comes onto the screen, with what it holds by then: its tables read their rows.
  void appear();
  // The view leaves the screen for good: an alert over it is dismissed unanswered.
  void disappear();

  // The layout pass: has the constraints updated, then solves them into the frames of the views
  // that they name. A view whose frame is its own stands where it is; where nothing decides,
  // a view keeps its place.
  void layOut();

  // Part of the pass. An override calls this one first.
  virtual void updateViewConstraints() {}

  virtual bool prefersStatusBarHidden() const { return false; }
  virtual bool shouldAutorotate() const { return true; }
  virtual unsigned supportedInterfaceOrientations() const { return kAllOrientations; }
  virtual InterfaceOrientation preferredInterfaceOrientationForPresentation() const {
    return InterfaceOrientation::portrait;
  }

  // Puts an alert over the view. While one is there another is not shown, but dismissed at once.
  void present(const std::shared_ptr<Alert>& alert, bool animated);
  // The alert over the view, or null.
  const std::shared_ptr<Alert>& presentedAlert() const { return presentedAlert_; }

 private:
  friend class Alert;
  std::shared_ptr<View> view_;
  std::shared_ptr<Alert> presentedAlert_;
};

}  // namespace wifi_profile::toolkit
