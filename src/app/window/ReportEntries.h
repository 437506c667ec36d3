// Converts a report to the entries of a list.
#pragma once

#include <QVariantList>

#include "report/Report.h"

namespace wifi_profile::window {

// Returns one map per entry, in the order of the report. "kind" is "section" (with "text", "note"
// and "counts", a list of {"mark", "count"}) or "finding" (with "mark", "text", "values", "advice"
// and "explanation"). A mark is the number of a `ReportMark`.
QVariantList entriesOf(const report::Report& report);

}  // namespace wifi_profile::window
