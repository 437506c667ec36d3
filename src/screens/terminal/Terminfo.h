// What the terminal's description says of it.
#pragma once

#include <optional>
#include <string>

namespace wifi_profile {

// What ends the use of the whole screen, of `lineCount` lines, of a terminal that has no screen of
// ncurses yet. Empty: `kind`, a value of TERM, is no terminal whose cursor can be moved.
std::optional<std::string> restoringSequenceOf(const std::string& kind, int descriptor,
                                               int lineCount);

// The following tell of the terminal that has a screen of ncurses now.

// Whether the shell's screen comes back at the end.
bool hasSecondScreen();

// The same, as ncurses would do it.
std::string restoringSequence(int lineCount);

}  // namespace wifi_profile
