// Makes the report document of a finished run, which every screen shows and the text report prints.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "diagnostic/controller/RunPlan.h"
#include "diagnostic/platform/Dictionary.h"
#include "report/Journal.h"
#include "report/Report.h"

namespace wifi_profile::report {

// A finished run.
struct Outcome {
  std::int64_t statusCode = 0;
  DictionaryRef data;           // the three sections, which no longer change; nil: all are empty
  std::optional<RunPlan> plan;  // empty: the run ended before its tests
  std::string site;             // address of the page that was to be reached; empty: unknown
};

// Returns the report. Its sections are device, current network and selected network, in this order;
// for a run that ended early, only those with content. Each section holds every test once: first
// the findings as sentences with their values, then the tests without an answer, with the reason.
// Tests that have the same reasons are combined. Accepts values of any kind in the record. Any
// thread.
Report reportOf(const Outcome& outcome, const Journal& journal);

}  // namespace wifi_profile::report
