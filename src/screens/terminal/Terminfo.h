// What the terminal's description says of it.
#pragma once

#include <string>

namespace wifi_profile {

// Whether `kind`, a value of TERM, is a terminal whose cursor can be moved.
bool hasUsableTerminfo(const std::string& kind, int descriptor);

// The following tell of the terminal that has a screen of ncurses now.

// Whether the shell's screen comes back at the end.
bool hasSecondScreen();

// What ends the use of the whole screen of `lineCount` lines: as ncurses would do it.
std::string restoringSequence(int lineCount);

}  // namespace wifi_profile
