// The screen of a terminal.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "screens/PersonScreen.h"

namespace wifi_profile {

struct TerminalStyle {
  bool color = true;  // a terminal without colours is monochrome by itself
};

// The screen, or why there is none ("found ..., expected ..."). Draws on the process's terminal, so
// that standard input, output and error may be elsewhere. Waits for keys, for another size, and for
// being stopped and continued in its main queue; SIGINT, SIGTERM and SIGHUP are left to the host. A
// terminal that goes away counts as asked to stop, and closed. One at a time in a process.
std::variant<std::shared_ptr<PersonScreen>, std::string> makeTerminalScreen(TerminalStyle style);

}  // namespace wifi_profile
