// The report as text.
#pragma once

#include <string>

#include "report/ReportDocument.h"

namespace wifi_profile::report {

struct ReportStyle {
  bool color = false;  // use the terminal's colours; a sign accompanies every colour
};

// Returns the report as text: its summary, then its sections. Each section lists its findings with
// their values, marked good, worth a look or a problem, with advice if there is something to do;
// then what could not be determined, and why. Explanations are omitted. Lines are at most
// `kTextWidth` columns wide where possible. Ends with a newline.
std::string reportText(const Report& report, ReportStyle style);

}  // namespace wifi_profile::report
