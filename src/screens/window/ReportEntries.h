// A report as the entries of a list.
#pragma once

#include <QVariantList>

#include "screens/Report.h"

namespace wifi_profile {

// One map an entry, in the order of the report: "kind" is "section" ("text", "note", "counts": a
// list of
// {"mark", "count"}) or "finding" ("mark", "text", "values", "advice", "explanation"). A mark is
// the number of a `ReportMark`.
QVariantList entriesOf(const Report& report);

}  // namespace wifi_profile
