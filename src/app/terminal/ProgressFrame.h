// Draws the progress of the tests, and short messages.
#pragma once

#include <string>

#include "app/terminal/Frame.h"
#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

// Draws the message, the progress bar, and the number of tests done.
void putProgress(Frame& frame, const Look& look, const app::Content& content,
                 const app::TestsDone& tests);

// Draws one text in the middle of the body.
void putMessage(Frame& frame, const std::string& text);

}  // namespace wifi_profile::terminal
