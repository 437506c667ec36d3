// A screen that draws nothing.
#pragma once

#include <memory>

#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::runtime {

// Performs each requested layout pass as work on the main queue. Requests that come before a pass
// share it.
class NoScreen : public toolkit::Screen {
 public:
  // The default is the size of a small phone's screen.
  explicit NoScreen(toolkit::Size size = {320, 568}) : size_(size) {}

  toolkit::Size size() const override { return size_; }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;

 private:
  toolkit::Size size_;
  // Shared with the posted work, which may run after the screen is gone.
  const std::shared_ptr<bool> passIsPosted_ = std::make_shared<bool>(false);
};

}  // namespace wifi_profile::runtime
