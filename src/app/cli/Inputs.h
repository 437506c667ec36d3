// Makes the diagnostic's inputs from the command line or a file.
#pragma once

#include <memory>
#include <variant>

#include "app/cli/CommandLine.h"
#include "app/cli/Files.h"
#include "diagnostic/controller/WiFiProfileInputs.h"

namespace wifi_profile::cli {

// Returns validated inputs, or what is wrong with the parameters. The default of "maxScanCacheAge"
// is 60 seconds.
std::variant<std::shared_ptr<WiFiProfileInputs>, Problem> inputsOf(const RunOptions& options);

// Returns where the list of networks was requested (an option or a key of the file), for messages.
std::string placeOfPick(const RunOptions& options);

}  // namespace wifi_profile::cli
