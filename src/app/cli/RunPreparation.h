// Prepares a run from the command line.
#pragma once

#include <memory>
#include <variant>

#include "app/cli/CommandLine.h"
#include "app/cli/DeviceChoice.h"
#include "app/cli/TraceFile.h"
#include "diagnostic/controller/WiFiProfileInputs.h"

namespace wifi_profile::cli {

struct PreparedRun {
  std::shared_ptr<WiFiProfileInputs> inputs;
  MakeDevice makeDevice;
  TraceFile::File traceFile;  // null: not requested
};

// Reads the parameters, chooses the device and opens the trace. Returns the first failure.
std::variant<PreparedRun, Failure> prepareRun(const RunOptions& options);

// Returns the requested screen. Without a request: the terminal if standard input and output are a
// terminal and time is real, otherwise none.
Ui uiOf(const RunOptions& options);

}  // namespace wifi_profile::cli
