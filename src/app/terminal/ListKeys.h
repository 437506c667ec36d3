// Keys in the list of networks and in its search.
#pragma once

#include "app/terminal/KeyHandler.h"

namespace wifi_profile::terminal {

// Each changes the state and returns the remaining effect.
Effect handleListKey(const Shown& shown, TerminalState& state, const Look& look, const Key& key);
Effect handleFindKey(const Shown& shown, TerminalState& state, const Look& look, const Key& key);

}  // namespace wifi_profile::terminal
