// Makes the whole terminal screen from the content and the screen's own state.
#pragma once

#include <cstddef>
#include <vector>

#include "app/terminal/PartFrames.h"

namespace wifi_profile::terminal {

// Main thread, because `shown` holds toolkit objects. Lays out only the rows that fit.
Frame frameOf(const Shown& shown, const TerminalState& state, const Look& look);

// The dialogs over the other content: the question whether to stop, and the alert.
Dialog stopQuestion(std::size_t focus);
Dialog dialogOf(const toolkit::Alert& alert, const DialogState& state);

// Returns the keys that work in a mode, the most useful first.
std::vector<KeyHint> keyHints(Mode mode, const Shown& shown, const Look& look);
// Returns every key that works in the mode below the help.
std::vector<KeyHint> helpHints(const Shown& shown, const Look& look);

}  // namespace wifi_profile::terminal
