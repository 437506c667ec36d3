// `wifi-profile-run`: the `run` command for scenarios, with a screen in the terminal or without a
// screen.

#include "app/cli/Console.h"
#include "app/cli/Program.h"
#include "app/cli/RunCommand.h"
#include "app/terminal/TerminalScreen.h"

int main(int argc, char** argv) {
  using namespace wifi_profile;
  using namespace wifi_profile::cli;
  return runProgram(argc, argv, [](const RunOptions& options) {
    const auto make = [] {
      return terminal::makeTerminalScreen({.color = !environmentHas("NO_COLOR")});
    };
    return runCommand(options, {Ui::terminal, make}, nullptr);
  });
}
