// The interactive screen in a terminal.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "app/PersonScreen.h"

namespace wifi_profile::terminal {

struct TerminalStyle {
  bool color = true;  // has no effect on a monochrome terminal
};

// Makes the screen, or returns why it cannot: "found ..., expected ...". The screen draws on the
// controlling terminal, so standard input, output and error may be redirected. Its main queue
// handles keys, changes of size, and being stopped and continued; SIGINT, SIGTERM and SIGHUP are
// left to the host. If the terminal disappears, the screen asks to stop and is closed. One instance
// at a time in a process.
std::variant<std::shared_ptr<app::PersonScreen>, std::string> makeTerminalScreen(
    TerminalStyle style);

}  // namespace wifi_profile::terminal
