// The screen of a host that draws nothing.
#pragma once

#include "platform/toolkit/Screen.h"

namespace wifi_profile {

// Grants every wish for a layout pass, as work on the main queue; several wishes that come before
// it share one pass.
class NoScreen : public toolkit::Screen, public std::enable_shared_from_this<NoScreen> {
 public:
  // As large as a small phone's, unless told otherwise.
  explicit NoScreen(toolkit::Size size = {320, 568}) : size_(size) {}

  toolkit::Size size() const override { return size_; }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;

 private:
  toolkit::Size size_;
  bool passIsPosted_ = false;
};

}  // namespace wifi_profile
