#include "runtime/NoScreen.h"

#include "diagnostic/platform/WorkQueues.h"
#include "diagnostic/platform/toolkit/ViewController.h"

namespace wifi_profile::runtime {

void NoScreen::needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) {
  if (passIsPosted_) return;
  passIsPosted_ = true;
  WorkQueues::shared()->postToMain([self = shared_from_this(), controller] {
    self->passIsPosted_ = false;
    controller->layOut();
  });
}

}  // namespace wifi_profile::runtime
