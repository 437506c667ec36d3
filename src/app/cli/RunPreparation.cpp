#include "app/cli/RunPreparation.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/Inputs.h"
#include "app/cli/NamedDevice.h"

namespace wifi_profile::cli {
namespace {

Failure usage(const Problem& problem) { return {kExitUsage, problem.message}; }

// Returns true if `file` is an input of the run. Only regular files count: a terminal, for example,
// can be both input and output.
bool readsFrom(const RunOptions& options, const std::string& file) {
  std::error_code missing;  // a missing file is not an input
  if (!std::filesystem::is_regular_file(file, missing)) return false;
  const auto isFile = [&](const std::optional<std::string>& input) {
    return input && std::filesystem::equivalent(*input, file, missing);
  };
  return (isFile(scenarioFileOf(options.device))) || isFile(options.parametersFile);
}

// Returns true if the descriptor and standard output are the same file or pipe, where the two
// outputs would mix.
bool isStandardOutput(int descriptor) {
  struct stat file {};
  struct stat output {};
  return fstat(descriptor, &file) == 0 && fstat(STDOUT_FILENO, &output) == 0 &&
         !S_ISCHR(file.st_mode) && file.st_dev == output.st_dev && file.st_ino == output.st_ino;
}

// A new file is readable and writable by its owner only: a trace contains names and addresses.
std::variant<TraceFile::File, Failure> openTrace(const std::string& path) {
  const auto failed = [&path] { return Failure{kExitOutput, cannotBeWritten(path, errno)}; };
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return failed();
  TraceFile::File file(fdopen(descriptor, "wb"));
  if (!file) return failed();
  if (isStandardOutput(descriptor)) {
    return usage(
        unexpected("--trace", "standard output, which the record goes to", "a file of its own"));
  }
  struct stat kind {};
  if (fstat(descriptor, &kind) == 0 && S_ISREG(kind.st_mode) && ftruncate(descriptor, 0) != 0) {
    return failed();
  }
  return file;
}

}  // namespace

Ui uiOf(const RunOptions& options) {
  if (options.ui) return *options.ui;
  // A person cannot act in virtual time.
  const bool onTerminal = isTerminal(STDIN_FILENO) && isTerminal(STDOUT_FILENO);
  return onTerminal && !options.virtualTime ? Ui::terminal : Ui::none;
}

std::variant<PreparedRun, Failure> prepareRun(const RunOptions& options) {
  const Ui ui = uiOf(options);
  if (ui != Ui::none && options.virtualTime) {
    return usage(
        unexpected("--time", "virtual", "real: a person at a screen needs time (or --ui none)"));
  }
  if (options.virtualTime && !isOnPaper(options.device)) {
    return usage(
        unexpected("--time", "virtual", "real: only a device on paper can do without real time"));
  }
  if (options.device == "-" && options.parametersFile == "-") {
    return usage(
        unexpected("--device and --parameters", "- for both", "standard input for one of them"));
  }
  auto inputs = inputsOf(options);
  if (const auto* problem = std::get_if<Problem>(&inputs)) return usage(*problem);
  auto chosen = chooseDevice(options);
  if (auto* failure = std::get_if<Failure>(&chosen)) return std::move(*failure);
  auto& device = std::get<ChosenDevice>(chosen);
  PreparedRun run{.inputs = std::get<std::shared_ptr<WiFiProfileInputs>>(inputs),
                  .makeDevice = std::move(device.make),
                  .traceFile = nullptr};
  if (run.inputs->reprofileWithNetworksListUI() && !device.hasUser && ui == Ui::none) {
    return usage(unexpected(placeOfPick(options), "a device without a user",
                            "a scenario with \"user\" steps, or --ui terminal or window: "
                            "--ui none draws no list to pick from"));
  }
  if (options.traceFile) {
    if (readsFrom(options, *options.traceFile)) {
      return usage(
          unexpected("--trace", "a file that is read, too", "a file that may be overwritten"));
    }
    auto trace = openTrace(*options.traceFile);
    if (auto* failure = std::get_if<Failure>(&trace)) return std::move(*failure);
    run.traceFile = std::get<TraceFile::File>(std::move(trace));
  }
  return run;
}

}  // namespace wifi_profile::cli
