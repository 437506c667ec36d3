// The program as a whole: command line in, exit status out.
#pragma once

#include "host/CommandLine.h"
#include "host/RunCommand.h"

namespace wifi_profile {

// `drawn`: the screen that `makeScreen` makes. A run with another one than that and none is another
// program's: `wifi-profile` hands it to `wifi-profile-window`, which stands beside it or in its
// libexec folder.
int runProgram(int argc, char** argv, Ui drawn, const MakeScreen& makeScreen);

}  // namespace wifi_profile
