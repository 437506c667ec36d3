// The interactive screen in a terminal.
#pragma once

#include <memory>

#include "app/PersonScreen.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::terminal {

struct TerminalStyle {
  bool color = true;  // has no effect on a monochrome terminal
};

// Makes the screen. It draws on the
// controlling terminal, so standard input, output and error may be redirected. Its main queue
// handles keys, changes of size, and being stopped and continued; SIGINT, SIGTERM and SIGHUP are
// left to the host. If the terminal disappears, the screen asks to stop and is closed. One instance
// at a time in a process.
Result<std::shared_ptr<app::PersonScreen>> makeTerminalScreen(TerminalStyle style);

}  // namespace wifi_profile::terminal
