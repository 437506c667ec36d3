// An activity indicator that turns during an operation.
#pragma once

#include "diagnostic/platform/toolkit/View.h"

namespace wifi_profile::toolkit {

enum class SpinnerStyle { smallGrey = 2 };

// Main thread only.
class Spinner final : public View {
 public:
  explicit Spinner(SpinnerStyle style) : style_(style) {}

  SpinnerStyle style() const { return style_; }
  bool isAnimating() const { return animating_; }

  // Report every call to the screen, even one that changes nothing.
  void startAnimating() { setAnimating(true); }
  void stopAnimating() { setAnimating(false); }

 private:
  void setAnimating(bool animating);

  SpinnerStyle style_;
  bool animating_ = false;
};

}  // namespace wifi_profile::toolkit
