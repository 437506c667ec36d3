// What a script's user does on the screen.
#pragma once

#include <optional>
#include <string>

#include "controller/WiFiProfileViewController.h"
#include "devices/scenario/Scenario.h"

namespace wifi_profile {

// Does a step that is done on the screen: taps, text, pulls and scrolls. Returns what is in the way
// of it, as "found ..., expected ...", when it cannot be done; then nothing has happened. Main
// thread.
std::optional<std::string> performOnScreen(WiFiProfileViewController& controller,
                                           const scenario::Step& step);

}  // namespace wifi_profile
