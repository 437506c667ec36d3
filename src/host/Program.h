// A program as a whole: command line in, exit status out.
#pragma once

#include <functional>

#include "host/CommandLine.h"

namespace wifi_profile {

// Does `run`, and returns the exit status.
using Run = std::function<int(const RunOptions&)>;

// The programs take the same command line, and differ in how they run.
int runProgram(int argc, char** argv, const Run& run);

}  // namespace wifi_profile
