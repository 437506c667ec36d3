// Makes the diagnostic's inputs from the command line or a file.
#pragma once

#include <memory>
#include <string>

#include "app/cli/CommandLine.h"
#include "diagnostic/controller/WiFiProfileInputs.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::cli {

// Returns validated inputs, or what is wrong with the parameters. The default of "maxScanCacheAge"
// is 60 seconds.
Result<std::shared_ptr<WiFiProfileInputs>> inputsOf(const RunOptions& options);

// Returns where the list of networks was requested (an option or a key of the file), for messages.
std::string placeOfPick(const RunOptions& options);

}  // namespace wifi_profile::cli
