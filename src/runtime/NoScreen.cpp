#include "runtime/NoScreen.h"

#include <utility>

#include "diagnostic/platform/WorkQueues.h"
#include "diagnostic/platform/toolkit/ViewController.h"

namespace wifi_profile::runtime {

void NoScreen::needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) {
  if (std::exchange(*passIsPosted_, true)) return;
  WorkQueues::shared()->postToMain([posted = passIsPosted_, controller] {
    *posted = false;
    controller->layOut();
  });
}

}  // namespace wifi_profile::runtime
