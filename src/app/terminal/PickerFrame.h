// Draws the list of networks.
#pragma once

#include "app/terminal/Frame.h"
#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

// If the list is empty, the reason is below it.
void putList(Frame& frame, const Look& look, const Shown& shown, const TerminalState& state);

}  // namespace wifi_profile::terminal
