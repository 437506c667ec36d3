// `wifi-profile-run`: the `run` command with a screen in the terminal, or without a screen.

#include "host/Console.h"
#include "host/Program.h"
#include "host/RunCommand.h"
#include "screens/terminal/TerminalScreen.h"

int main(int argc, char** argv) {
  using namespace wifi_profile;
  return runProgram(argc, argv, [](const RunOptions& options) {
    return runCommand(options, Ui::terminal,
                      [] { return makeTerminalScreen({.color = !environmentHas("NO_COLOR")}); });
  });
}
