#include "host/Program.h"

#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

#include "host/ExitStatus.h"
#include "host/ExplainCommand.h"
#include "host/Files.h"
#include "host/ScanCommand.h"
#include "host/TestsCommand.h"
#include "runtime/SafeText.h"

namespace wifi_profile {
namespace {

int print(const std::string& text) {
  if (writeAll(stdout, text)) return kExitDone;
  std::fputs("wifi-profile: standard output cannot be written\n", stderr);
  return kExitOutput;
}

int execute(const ScanOptions& options) { return scanCommand(options); }

int execute(const TestsOptions& options) { return print(options.json ? testsJson() : testsText()); }

int execute(const ExplainOptions& options) {
  if (!options.key) return print(allKeysText());
  if (const auto text = explainText(*options.key)) return print(*text);
  const auto similar = similarKeys(*options.key);
  const std::string_view hint = similar.empty() ? "; try 'wifi-profile explain'" : " such as ";
  writeAll(stderr,
           fmt::format("wifi-profile: explain: found \"{}\", expected a key of the record{}{}\n",
                       safeText(*options.key), hint, fmt::join(similar, ", ")));
  return kExitUsage;
}

int execute(const EarlyExit& exit) {
  if (exit.status == kExitDone) return print(exit.text);
  std::fputs(exit.text.c_str(), stderr);
  return exit.status;
}

// Makes sure that the three standard descriptors are taken: a file that is opened later must not
// become standard output by accident. Reading finds nothing there, and writing fails.
void occupyStandardDescriptors() {
  int descriptor = 0;
  do {
    descriptor = open("/dev/null", O_RDONLY);
  } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
  if (descriptor > STDERR_FILENO) close(descriptor);
}

// Becomes the window's program, with the same arguments. Returns only where that cannot be had.
void becomeWindowProgram(char** argv) {
  std::error_code unknown;
  const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe", unknown);
  const auto beside = own.parent_path();
  const auto installed = beside / ".." / WIFI_PROFILE_LIBEXEC / "wifi-profile";
  for (const auto& folder : {beside, installed}) {
    execv((folder / "wifi-profile-window").c_str(), argv);
  }
}

struct Execute {
  char** argv;
  Ui drawn;
  const MakeScreen& makeScreen;

  int operator()(const auto& options) const { return execute(options); }

  int operator()(RunOptions options) const {
    if (drawn == Ui::window && !options.ui) options.ui = Ui::window;
    if (!options.ui || *options.ui == drawn || *options.ui == Ui::none) {
      return runCommand(options, makeScreen);
    }
    if (*options.ui == Ui::window) {
      becomeWindowProgram(argv);
      std::fputs(
          "wifi-profile: --ui: found window, but no wifi-profile-window beside this program; "
          "expected terminal or none, or the window to be installed\n",
          stderr);
    } else {
      std::fputs("wifi-profile: --ui: found terminal, expected window from this program\n", stderr);
    }
    return kExitUsage;
  }
};

}  // namespace

int runProgram(int argc, char** argv, Ui drawn, const MakeScreen& makeScreen) {
  occupyStandardDescriptors();
  return std::visit(Execute{argv, drawn, makeScreen}, parseCommandLine({argv + 1, argv + argc}));
}

}  // namespace wifi_profile
