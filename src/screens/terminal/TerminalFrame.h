// The whole screen of the terminal, from what there is to be shown and the screen's own state.
#pragma once

#include <cstddef>
#include <vector>

#include "screens/terminal/PartFrames.h"

namespace wifi_profile {

// Shown's toolkit objects belong to the main thread. Lays out no more rows than there is room for.
Frame frameOf(const Shown& shown, const TerminalState& state, const Look& look);

// What is asked over everything else: the question whether to stop, or the alert.
Dialog stopQuestion(std::size_t focus);
Dialog dialogOf(const toolkit::Alert& alert, const DialogState& state);

// The keys that do something in a mode, the most useful first.
std::vector<KeyHint> keyHints(Mode mode, const Shown& shown, const Look& look);
// Every key that does something in what lies under the help.
std::vector<KeyHint> helpHints(const Shown& shown, const Look& look);

}  // namespace wifi_profile
