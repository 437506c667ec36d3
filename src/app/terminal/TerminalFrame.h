// Makes the whole terminal screen from the content and the state of the screen.
#pragma once

#include "app/terminal/Frame.h"
#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

// Main thread, because `shown` holds toolkit objects. Lays out only the rows that fit.
Frame frameOf(const Shown& shown, const TerminalState& state, const Look& look);

}  // namespace wifi_profile::terminal
