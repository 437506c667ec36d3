// Keys in an alert.
#pragma once

#include "app/terminal/KeyHandler.h"

namespace wifi_profile::terminal {

// Returns the initial state of a dialog. The focus is in the text field or, without one, on the
// last action that is enabled and not of cancel style.
DialogState initialState(const toolkit::Alert& alert);

// Changes the state and returns the remaining effect.
Effect handleAlertKey(const Shown& shown, TerminalState& state, const Key& key);

}  // namespace wifi_profile::terminal
