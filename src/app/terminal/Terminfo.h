// Reads the terminal's description.
#pragma once

#include <optional>
#include <string>

namespace wifi_profile::terminal {

// Returns the sequence that ends full-screen use of a terminal with `lineCount` lines, before
// ncurses has a screen on it. Empty if `kind`, a value of TERM, is not a terminal with cursor
// movement.
std::optional<std::string> restoringSequenceOf(const std::string& kind, int descriptor,
                                               int lineCount);

// The functions below apply to the terminal of the current ncurses screen.

// Returns true if the terminal restores the shell's screen at the end.
bool hasSecondScreen();

// Returns the sequence that ends full-screen use, as ncurses would send it.
std::string restoringSequence(int lineCount);

}  // namespace wifi_profile::terminal
