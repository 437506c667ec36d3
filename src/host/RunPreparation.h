// What a run needs before it can begin, from the command line.
#pragma once

#include <memory>
#include <variant>

#include "controller/WiFiProfileInputs.h"
#include "host/CommandLine.h"
#include "host/DeviceChoice.h"
#include "host/TraceFile.h"

namespace wifi_profile {

struct PreparedRun {
  std::shared_ptr<WiFiProfileInputs> inputs;
  MakeDevice makeDevice;
  TraceFile::File traceFile;  // null: none was asked for
};

// Reads parameters and device, and opens the trace; the first thing that is wrong is the failure.
std::variant<PreparedRun, Failure> prepareRun(const RunOptions& options);

// The screen that was asked for. By itself: the terminal, where a person is at one.
Ui uiOf(const RunOptions& options);

}  // namespace wifi_profile
