// The world around a device on paper: the facts that the checks make their answers from.
#pragma once

#include <chrono>
#include <map>

#include "checks/Facts.h"
#include "checks/Settings.h"
#include "platform/DiagnosticsTestID.h"

namespace wifi_profile::scenario {

struct World {
  checks::Facts facts;
  checks::Settings settings = checks::defaultSettings();
  // How long a request takes: that of its test, or else that of all.
  std::map<DiagnosticsTestID, std::chrono::nanoseconds> delays;
  std::chrono::nanoseconds delay{0};

  std::chrono::nanoseconds delayOf(DiagnosticsTestID test) const {
    const auto found = delays.find(test);
    return found == delays.end() ? delay : found->second;
  }
};

}  // namespace wifi_profile::scenario
