// The command `wifi-profile run`.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>

#include "app/PersonScreen.h"
#include "app/cli/CommandLine.h"

namespace wifi_profile::cli {

// Makes the person's screen, or returns why it cannot: "found ..., expected ...".
using MakeScreen = std::function<std::variant<std::shared_ptr<app::PersonScreen>, std::string>()>;

// Runs the diagnostic once and prints its record. `drawn` is the kind of screen that `makeScreen`
// makes; besides it, only Ui::none is accepted. Returns the exit status.
int runCommand(const RunOptions& options, Ui drawn, const MakeScreen& makeScreen);

}  // namespace wifi_profile::cli
