#include "app/cli/Program.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include "app/cli/Console.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/LastResort.h"
#include "app/cli/ScanCommand.h"
#include "app/cli/TestsCommand.h"
#include "devices/linux/Workers.h"
#include "report/Explanation.h"
#include "runtime/SafeText.h"

namespace wifi_profile::cli {
namespace {

int print(const std::string& text) {
  if (writeAll(stdout, text)) return kExitDone;
  return complain({kExitOutput, cannotBeWritten("standard output", errno)});
}

int execute(const ScanOptions& options) { return scanCommand(options); }

int execute(const TestsOptions& options) { return print(options.json ? testsJson() : testsText()); }

int execute(const ExplainOptions& options) {
  if (!options.key) return print(report::allKeysText());
  if (const auto text = report::explainText(*options.key)) return print(*text);
  const auto similar = report::similarKeys(*options.key);
  const std::string_view hint = similar.empty() ? "; try 'wifi-profile explain'" : " such as ";
  writeAll(stderr,
           fmt::format("wifi-profile: explain: found \"{}\", expected a key of the record{}{}\n",
                       runtime::safeText(*options.key), hint, fmt::join(similar, ", ")));
  return kExitUsage;
}

int execute(const EarlyExit& exit) {
  if (exit.status == kExitDone) return print(exit.text);
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

struct Execute {
  const Run& run;

  int operator()(const RunOptions& options) const { return run(options); }
  int operator()(const auto& options) const { return execute(options); }
};

}  // namespace

int endWith(int status) {
  if (linux::Workers::shared().isBusy()) std::_Exit(status);
  return status;
}

int runProgram(int argc, char** argv, const Run& run) {
  occupyStandardDescriptors();
  installLastResort();
  std::signal(SIGXFSZ, SIG_IGN);  // exceeding the file size limit then shows as a failed write
  return endWith(std::visit(Execute{run}, parseCommandLine({argv + 1, argv + argc})));
}

}  // namespace wifi_profile::cli
