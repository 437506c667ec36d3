// What a finished run found, as the document that every screen shows and the text report prints.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "controller/RunPlan.h"
#include "host/Journal.h"
#include "platform/Dictionary.h"
#include "screens/Report.h"

namespace wifi_profile {

// A finished run.
struct Outcome {
  std::int64_t statusCode = 0;
  DictionaryRef data;           // the three sections, no longer changing; nil: all are empty
  std::optional<RunPlan> plan;  // empty: it ended before its tests
  std::string site;             // address of the page that was to be reached; empty: not known
};

// The sections device, current network, selected network, in this order; those of a run that ended
// early only where they hold something. In each, every test once: the findings as sentences with
// their values, and what could not be found out, with why; tests that have the same reason stand
// together. Whatever kinds of values the record holds, there is a document. Any thread.
Report reportOf(const Outcome& outcome, const Journal& journal);

}  // namespace wifi_profile
