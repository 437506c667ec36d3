// Updates the screen's own state after changes of the table or of the terminal's size.
#pragma once

#include "app/terminal/TerminalState.h"
#include "diagnostic/platform/toolkit/TableEvent.h"

namespace wifi_profile::terminal {

// Call before making a frame or handling a key: moves the cursor to an existing row.
TerminalState settled(const Shown& shown, TerminalState state, const Look& look);

// Call after a table's event: the cursor follows its row, and a row that was scrolled to is
// visible.
TerminalState following(const Shown& shown, TerminalState state, const Look& look,
                        const toolkit::TableEvent& event);

// Call after `look` has changed: the cursor is visible.
TerminalState resized(const Shown& shown, TerminalState state, const Look& look);

}  // namespace wifi_profile::terminal
