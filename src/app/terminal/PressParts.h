// Key handlers of the screen's modes. Each one changes `state` and returns the remaining effect.
#pragma once

#include "app/terminal/Press.h"

namespace wifi_profile::terminal {

Effect pressedInList(const Shown& shown, TerminalState& state, const Look& look, const Key& key);
Effect pressedInFind(const Shown& shown, TerminalState& state, const Look& look, const Key& key);
Effect pressedInAlert(const Shown& shown, TerminalState& state, const Key& key);
Effect pressedInQuestion(TerminalState& state, const Key& key);
Effect pressedInReport(const Shown& shown, TerminalState& state, const Look& look, const Key& key);

// Handles `?` and `q`, which work in most modes. Returns true if it handled the key.
bool openedHelpOrQuestion(TerminalState& state, const Key& key);

}  // namespace wifi_profile::terminal
