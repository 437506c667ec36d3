// The keys that work, as hints in the last line and as a list over the screen.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

// A key, or several keys, and what they do.
struct KeyHint {
  std::string keys;
  std::string text;
};

// Returns the keys that work in a mode, the most useful first.
std::vector<KeyHint> keyHints(Mode mode, const Shown& shown, const Look& look);
// Returns every key that works in the mode below the help.
std::vector<KeyHint> helpHints(const Shown& shown, const Look& look);

// Draws the hints that fit into the last line.
void putHints(Frame& frame, const std::vector<KeyHint>& hints);
// Draws all hints in a box. `first` is the first visible hint if not all fit.
void putHelp(Frame& frame, const Look& look, const std::vector<KeyHint>& hints, int first);
// Returns the greatest useful value of `first`.
int lastHelpLine(Extent extent, std::size_t hints);

}  // namespace wifi_profile::terminal
