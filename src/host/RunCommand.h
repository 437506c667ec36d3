// `wifi-profile run`.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>

#include "host/CommandLine.h"
#include "screens/PersonScreen.h"

namespace wifi_profile {

// Makes the screen that is drawn for a person, or says why there is none: "found ..., expected
// ...".
using MakeScreen = std::function<std::variant<std::shared_ptr<PersonScreen>, std::string>()>;

// Runs the diagnostic once and prints its record. `drawn` is the screen that `makeScreen` makes,
// and the only one there is besides none. Returns the exit status.
int runCommand(const RunOptions& options, Ui drawn, const MakeScreen& makeScreen);

}  // namespace wifi_profile
