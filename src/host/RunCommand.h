// `wifi-profile run`.
#pragma once

#include "host/CommandLine.h"

namespace wifi_profile {

// Runs the diagnostic and prints its record on standard output; everything else goes to standard
// error. Returns the exit status. Main thread.
int runCommand(const RunOptions& options);

}  // namespace wifi_profile
