// A screen that draws nothing.
#pragma once

#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::runtime {

// Performs each requested layout pass as work on the main queue. Requests that come before a pass
// share it.
class NoScreen : public toolkit::Screen, public std::enable_shared_from_this<NoScreen> {
 public:
  // The default is the size of a small phone's screen.
  explicit NoScreen(toolkit::Size size = {320, 568}) : size_(size) {}

  toolkit::Size size() const override { return size_; }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;

 private:
  toolkit::Size size_;
  bool passIsPosted_ = false;
};

}  // namespace wifi_profile::runtime
