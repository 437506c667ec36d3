// `wifi-profile`: all commands. For `run` it executes the program that draws the screen or opens
// the device, so that no program loads the libraries of another.

#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

#include "app/cli/Console.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/OpenDevice.h"
#include "app/cli/Program.h"
#include "app/cli/ScanCommand.h"
#include "app/cli/TestsCommand.h"
#include "report/Explanation.h"

namespace {

using namespace wifi_profile;
using namespace wifi_profile::cli;

int printed(const std::string& text) {
  const Status status = print(text);
  return status ? kExitDone : complain({kExitOutput, status.error()});
}

int explain(const ExplainOptions& options) {
  if (!options.key) return printed(report::allKeysText());
  if (const auto text = report::explainText(*options.key)) return printed(*text);
  const auto similar = report::similarKeys(*options.key);
  return complain(
      kExitUsage,
      fmt::format("explain: unknown key \"{}\"; {}", *options.key,
                  similar.empty() ? "list all keys with 'wifi-profile explain'"
                                  : fmt::format("similar keys: {}", fmt::join(similar, ", "))));
}

int perform(const Command& command) {
  if (const auto* const scan = std::get_if<ScanOptions>(&command)) return scanCommand(*scan);
  if (const auto* const tests = std::get_if<TestsOptions>(&command)) {
    return printed(tests->json ? testsJson() : testsText());
  }
  return explain(std::get<ExplainOptions>(command));
}

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

int run(const RunOptions& options, char** argv) {
  const bool window = options.ui == Ui::window;
  const char* const program = window                       ? "wifi-profile-window"
                              : isScenario(options.device) ? "wifi-profile-run"
                                                           : "wifi-profile-run-linux";
  becomeProgram(program, argv);
  return complain(kExitUsage,
                  fmt::format("cannot run {}: it is not in this program's folder or its "
                              "libexec folder{}",
                              program, window ? "; use --ui terminal" : ""));
}

}  // namespace

int main(int argc, char** argv) {
  return runProgram(
      argc, argv, [argv](const RunOptions& options) { return run(options, argv); }, perform);
}
