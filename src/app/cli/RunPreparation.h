// Prepares a run from the command line.
#pragma once

#include <functional>
#include <memory>
#include <variant>

#include "app/cli/CommandLine.h"
#include "app/cli/Console.h"
#include "app/cli/RunDevice.h"
#include "app/cli/TraceFile.h"
#include "diagnostic/controller/WiFiProfileInputs.h"

namespace wifi_profile::cli {

// Opens this computer as the device of a run. Empty in a program that only runs scenarios.
using OpenComputer = std::function<std::variant<MakeDevice, Failure>(const RunOptions&)>;

struct PreparedRun {
  std::shared_ptr<WiFiProfileInputs> inputs;
  MakeDevice makeDevice;
  TraceFile::File traceFile;  // null: not requested
};

// Reads the parameters, opens the device and the trace. Returns the first failure.
std::variant<PreparedRun, Failure> prepareRun(const RunOptions& options,
                                              const OpenComputer& openComputer);

// Returns the requested screen. Without a request: the terminal if standard input and output are a
// terminal and time is real, otherwise none.
Ui uiOf(const RunOptions& options);

}  // namespace wifi_profile::cli
