// `wifi-profile`: all commands. For `run` it executes the program that draws the screen, so that
// the other commands do not load what only a run needs.

#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

#include "app/cli/Console.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/Program.h"

namespace {

// Replaces this process by the program, with the same arguments. Returns only if the program cannot
// be executed.
void becomeProgram(const char* name, char** argv) {
  std::error_code unknown;
  const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe", unknown);
  if (own.empty()) return;  // otherwise the paths below would be relative to the working directory
  const auto beside = own.parent_path();
  const auto installed = beside / ".." / WIFI_PROFILE_LIBEXEC / "wifi-profile";
  for (const auto& folder : {beside, installed}) execv((folder / name).c_str(), argv);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace wifi_profile;
  using namespace wifi_profile::cli;
  return runProgram(argc, argv, [argv](const RunOptions& options) {
    const bool window = options.ui == Ui::window;
    const char* const program = window ? "wifi-profile-window" : "wifi-profile-run";
    becomeProgram(program, argv);
    return complain(
        {kExitUsage, fmt::format("{}: found no {} beside this program or in its libexec folder, "
                                 "expected it to be installed{}",
                                 window ? "--ui window" : "run", program,
                                 window ? "; or try --ui terminal" : "")});
  });
}
