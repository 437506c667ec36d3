// Performs the user's steps of a script on the screen.
#pragma once

#include "devices/scenario/Scenario.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::cli {

// Performs a step on the screen: a tap, text, a pull or a scroll. Returns why it cannot be
// performed; then it has changed nothing. Main thread.
Status performOnScreen(WiFiProfileViewController& controller, const scenario::Step& step);

}  // namespace wifi_profile::cli
