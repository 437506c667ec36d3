// Performs the user's steps of a script on the screen.
#pragma once

#include <optional>
#include <string>

#include "devices/scenario/Scenario.h"
#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile::cli {

// Performs a step on the screen: a tap, text, a pull or a scroll. Returns why it cannot be
// performed; then it has changed nothing. Empty on success. Main thread.
std::optional<std::string> performOnScreen(WiFiProfileViewController& controller,
                                           const scenario::Step& step);

}  // namespace wifi_profile::cli
