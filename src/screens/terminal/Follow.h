// The screen's own state after what happens elsewhere: to the table, to the terminal's size.
#pragma once

#include "platform/toolkit/TableEvent.h"
#include "screens/terminal/TerminalState.h"

namespace wifi_profile {

// Before a frame is made or a key is handled: the cursor is on a row that is there.
TerminalState settled(const Shown& shown, TerminalState state, const Look& look);

// After a table's event: the cursor follows its row, and a row that was scrolled to shows.
TerminalState following(const Shown& shown, TerminalState state, const Look& look,
                        const toolkit::TableEvent& event);

// After `look` has become another one: the cursor is in sight.
TerminalState resized(const Shown& shown, TerminalState state, const Look& look);

}  // namespace wifi_profile
