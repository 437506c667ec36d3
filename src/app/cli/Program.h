// The frame of every program: command line in, exit status out.
#pragma once

#include <functional>

#include "app/cli/CommandLine.h"

namespace wifi_profile::cli {

// Performs the `run` command. Returns the exit status.
using Run = std::function<int(const RunOptions&)>;

// Returns `status`, for `main` to return. If a worker is busy, ends the process with `status`
// immediately, because the worker may still use objects that a normal exit destroys.
// All output must have been written before the call.
int endWith(int status);

// Runs a program. All programs accept the same command line and differ only in `run`. Returns the
// exit status.
int runProgram(int argc, char** argv, const Run& run);

}  // namespace wifi_profile::cli
