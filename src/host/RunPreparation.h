// What a run needs before it can begin, from the command line.
#pragma once

#include <memory>
#include <string>
#include <string_view>
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

// Writes what went wrong to standard error, and returns the status.
int complain(const Failure& failure);

bool environmentHas(const char* name);
// A terminal that can be drawn on.
bool isTerminal(int descriptor);

// That a place cannot be written to, with the `errno` of that.
std::string cannotBeWritten(std::string_view place, int error);

}  // namespace wifi_profile
