// The screen of a host that draws nothing.
#pragma once

#include "platform/toolkit/Screen.h"

namespace wifi_profile {

// Grants every wish for a layout pass, as work on the main queue; several wishes that come before
// it share one pass.
class NoScreen : public toolkit::Screen, public std::enable_shared_from_this<NoScreen> {
 public:
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;
  void constraintWasAdded(const toolkit::View& /*holder*/,
                          const toolkit::LayoutConstraint& /*constraint*/) override {}
  void progressWasSet(const toolkit::ProgressView& /*progressView*/) override {}

 private:
  bool passIsPosted_ = false;
};

}  // namespace wifi_profile
