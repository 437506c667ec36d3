// Makes the report document of a finished run, which every screen shows and the text report prints.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "diagnostic/controller/RunPlan.h"
#include "report/OutcomeCollector.h"
#include "report/Report.h"

namespace wifi_profile::report {

struct FinishedRun {
  std::int64_t statusCode = 0;
  std::optional<RunPlan> plan = {};  // empty: the run ended before its tests
  std::string site = {};             // address of the page that was to be reached; empty: unknown
  CollectedOutcomes collected = {};
};

// Returns the report. Its sections are device, current network and selected network, in this order;
// for a run that ended early, only those with content. Each section holds every test once: first
// the findings as sentences with their values, then the tests without an answer, with the reason.
// Tests that have the same reason are combined. Accepts values of any kind. Any thread.
Report reportOf(const FinishedRun& run);

}  // namespace wifi_profile::report
