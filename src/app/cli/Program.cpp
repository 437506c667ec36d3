#include "app/cli/Program.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#include "app/cli/Console.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/LastResort.h"
#include "devices/linux/Workers.h"

namespace wifi_profile::cli {
namespace {

int printAndExit(const EarlyExit& exit) {
  if (exit.status == kExitDone) {
    const Status printed = print(exit.text);
    return printed ? kExitDone : complain({kExitOutput, printed.error()});
  }
  std::fputs(exit.text.c_str(), stderr);
  return exit.status;
}

// Opens /dev/null on each standard descriptor that is closed: a file that is opened later must not
// become standard output. Reading from such a descriptor returns end of file, and writing fails.
void occupyStandardDescriptors() {
  int descriptor = 0;
  do {
    descriptor = open("/dev/null", O_RDONLY);
  } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
  if (descriptor > STDERR_FILENO) close(descriptor);
}

int perform(const Command& command, const Run& run, const OtherCommand& other) {
  if (const auto* const exit = std::get_if<EarlyExit>(&command)) return printAndExit(*exit);
  if (const auto* const options = std::get_if<RunOptions>(&command)) return run(*options);
  if (other) return other(command);
  return complain(kExitUsage, "this program has no command but run; use wifi-profile");
}

}  // namespace

int endWith(int status) {
  if (linux::Workers::shared().isBusy()) std::_Exit(status);
  return status;
}

int runProgram(int argc, char** argv, const Run& run, const OtherCommand& other) {
  occupyStandardDescriptors();
  installLastResort();
  std::signal(SIGXFSZ, SIG_IGN);  // exceeding the file size limit then shows as a failed write
  return endWith(perform(parseCommandLine({argv + 1, argv + argc}), run, other));
}

}  // namespace wifi_profile::cli
