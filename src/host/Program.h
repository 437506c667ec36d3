// A program as a whole: command line in, exit status out.
#pragma once

#include <functional>

#include "host/CommandLine.h"

namespace wifi_profile {

// Does `run`, and returns the exit status.
using Run = std::function<int(const RunOptions&)>;

// Returns `status`, for `main` to return; where a thread was left behind, ends the process with it
// at once. Such a thread may still use what is destroyed when a program ends in the usual way. All
// output must have been written.
int endWith(int status);

// The programs take the same command line, and differ in how they run.
int runProgram(int argc, char** argv, const Run& run);

}  // namespace wifi_profile
