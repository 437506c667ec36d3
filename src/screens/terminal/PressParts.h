// What a key does in each of the screen's modes. Each changes `state` and returns what else is to
// be done.
#pragma once

#include "screens/terminal/Press.h"

namespace wifi_profile {

Effect pressedInList(const Shown& shown, TerminalState& state, const Look& look, const Key& key);
Effect pressedInFind(const Shown& shown, TerminalState& state, const Look& look, const Key& key);
Effect pressedInAlert(const Shown& shown, TerminalState& state, const Key& key);
Effect pressedInQuestion(TerminalState& state, const Key& key);
Effect pressedInReport(const Shown& shown, TerminalState& state, const Look& look, const Key& key);

// `?` and `q`, which work nearly everywhere.
bool openedHelpOrQuestion(TerminalState& state, const Key& key);

}  // namespace wifi_profile
