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
#include "app/cli/OpenDevice.h"

namespace wifi_profile::cli {
namespace {

Failure usage(std::string message) {
  return {kExitUsage, Error{Reason::failed, std::move(message)}};
}

// Returns true if `file` is an input of the run. Only regular files count: a terminal, for example,
// can be both input and output.
bool readsFrom(const RunOptions& options, const std::string& file) {
  std::error_code missing;  // a missing file is not an input
  if (!std::filesystem::is_regular_file(file, missing)) return false;
  const auto isFile = [&](const std::optional<std::string>& input) {
    return input && std::filesystem::equivalent(*input, file, missing);
  };
  return isFile(scenarioFileOf(options.device)) || isFile(options.parametersFile);
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
  const auto failed = [&path] {
    return Failure{kExitOutput, systemError("cannot open " + path, errno)};
  };
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) return failed();
  TraceFile::File file(fdopen(descriptor, "wb"));
  if (!file) return failed();
  if (isStandardOutput(descriptor)) {
    return usage("--trace: cannot be standard output: the record goes there; name another file");
  }
  struct stat kind {};
  if (fstat(descriptor, &kind) == 0 && S_ISREG(kind.st_mode) && ftruncate(descriptor, 0) != 0) {
    return failed();
  }
  return file;
}

// The device, and whether a script performs the user's actions.
struct OpenedDevice {
  MakeDevice make;
  bool hasUser;
};

std::variant<OpenedDevice, Failure> openDevice(const RunOptions& options,
                                               const OpenComputer& openComputer) {
  if (!isScenario(options.device)) {
    if (!openComputer) return usage("this program runs scenarios only; use wifi-profile run");
    auto opened = openComputer(options);
    if (auto* const failure = std::get_if<Failure>(&opened)) return std::move(*failure);
    return OpenedDevice{std::get<MakeDevice>(std::move(opened)), false};
  }
  if (options.site) {
    return usage("--site is for --device linux only: a scenario contains its own answers");
  }
  auto read = openScenario(*options.device);
  if (!read) return Failure{kExitScenario, read.error()};
  const auto scenario = std::make_shared<const scenario::Scenario>(*std::move(read));
  return OpenedDevice{
      [scenario](Pace& pace) { return std::make_unique<ScenarioRunDevice>(*scenario, pace); },
      scenario->user.has_value()};
}

}  // namespace

Ui uiOf(const RunOptions& options) {
  if (options.ui) return *options.ui;
  // A person cannot act in virtual time.
  const bool onTerminal = isTerminal(STDIN_FILENO) && isTerminal(STDOUT_FILENO);
  return onTerminal && !options.virtualTime ? Ui::terminal : Ui::none;
}

std::variant<PreparedRun, Failure> prepareRun(const RunOptions& options,
                                              const OpenComputer& openComputer) {
  const Ui ui = uiOf(options);
  if (ui != Ui::none && options.virtualTime) {
    return usage("--time virtual cannot be used with a screen; use --ui none");
  }
  if (options.virtualTime && !isScenario(options.device)) {
    return usage("--time virtual is for scenarios only");
  }
  if (options.device == "-" && options.parametersFile == "-") {
    return usage("--device and --parameters cannot both read standard input");
  }
  auto inputs = inputsOf(options);
  if (!inputs) return Failure{kExitUsage, inputs.error()};
  auto opened = openDevice(options, openComputer);
  if (auto* const failure = std::get_if<Failure>(&opened)) return std::move(*failure);
  auto& device = std::get<OpenedDevice>(opened);
  PreparedRun run{.inputs = *inputs, .makeDevice = std::move(device.make), .traceFile = nullptr};
  if (run.inputs->reprofileWithNetworksListUI() && !device.hasUser && ui == Ui::none) {
    return usage(placeOfPick(options) +
                 " with --ui none needs a scenario with \"user\"; use --ui terminal or window");
  }
  if (options.traceFile) {
    if (readsFrom(options, *options.traceFile)) {
      return usage("--trace: " + *options.traceFile +
                   " is an input of this run; name another file");
    }
    auto trace = openTrace(*options.traceFile);
    if (auto* const failure = std::get_if<Failure>(&trace)) return std::move(*failure);
    run.traceFile = std::get<TraceFile::File>(std::move(trace));
  }
  return run;
}

}  // namespace wifi_profile::cli
