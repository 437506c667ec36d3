#include <cstdlib>

#include "host/Program.h"
#include "screens/terminal/TerminalScreen.h"

int main(int argc, char** argv) {
  using namespace wifi_profile;
  return runProgram(argc, argv, Ui::terminal, [] {
    const char* const noColor = std::getenv("NO_COLOR");
    return makeTerminalScreen({.color = !noColor || *noColor == '\0'});
  });
}
