// The environment of a simulated device: the facts from which the checks compute their answers.
#pragma once

#include <chrono>
#include <map>

#include "analysis/checks/Settings.h"
#include "analysis/facts/Facts.h"
#include "diagnostic/platform/DiagnosticsTestID.h"

namespace wifi_profile::scenario {

struct World {
  facts::Facts facts;
  checks::Settings settings = checks::defaultSettings();
  // The duration of a request: that of its test, otherwise that of all tests.
  std::map<DiagnosticsTestID, std::chrono::nanoseconds> delays;
  std::chrono::nanoseconds delay{0};

  std::chrono::nanoseconds delayOf(DiagnosticsTestID test) const {
    const auto found = delays.find(test);
    return found == delays.end() ? delay : found->second;
  }
};

}  // namespace wifi_profile::scenario
