// The frame of every program: command line in, exit status out.
#pragma once

#include <functional>

#include "app/cli/CommandLine.h"

namespace wifi_profile::cli {

// Performs the `run` command. Returns the exit status.
using Run = std::function<int(const RunOptions&)>;

// Performs a command besides `run`. Returns the exit status.
using OtherCommand = std::function<int(const Command&)>;

// Returns `status`, for `main` to return. If a worker is busy, ends the process with `status`
// immediately, because the worker may still use objects that a normal exit destroys.
// All output must have been written before the call.
int endWith(int status);

// Runs a program. All programs accept the same command line. Without `other`, the program refuses
// the other commands. Returns the exit status.
int runProgram(int argc, char** argv, const Run& run, const OtherCommand& other = nullptr);

}  // namespace wifi_profile::cli
