// The diagnostic's parameters, from the command line or a file.
#pragma once

#include <memory>
#include <variant>

#include "controller/WiFiProfileInputs.h"
#include "host/CommandLine.h"
#include "host/Files.h"

namespace wifi_profile {

// Validated inputs, or what is wrong with the parameters. "maxScanCacheAge" is 60 where nothing
// else was asked for.
std::variant<std::shared_ptr<WiFiProfileInputs>, Problem> inputsOf(const RunOptions& options);

// Where a person asked for the list of networks, for messages.
std::string placeOfPick(const RunOptions& options);

}  // namespace wifi_profile
