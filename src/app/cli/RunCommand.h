// The command `wifi-profile run`.
#pragma once

#include <functional>
#include <memory>

#include "app/PersonScreen.h"
#include "app/cli/CommandLine.h"
#include "app/cli/RunPreparation.h"

namespace wifi_profile::cli {

// A program's screen. The program draws this one, or none.
struct Drawing {
  Ui ui;
  std::function<Result<std::shared_ptr<app::PersonScreen>>()> make;
};

// Runs the diagnostic once and prints its record. Returns the exit status.
int runCommand(const RunOptions& options, const Drawing& drawing, const OpenComputer& openComputer);

}  // namespace wifi_profile::cli
