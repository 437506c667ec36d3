// The report as text.
#pragma once

#include <string>

#include "host/ReportDocument.h"

namespace wifi_profile {

struct ReportStyle {
  bool color = false;  // with the terminal's colours; signs stand beside every colour
};

// The report: its summary, then its sections; in each, the findings with their values, marked good,
// worth a look or a problem, with advice where there is something to do; what could not be found
// out, and why. Explanations are left out. Ends with a newline. Its lines keep to a bearable width
// where they can.
std::string reportText(const Report& report, ReportStyle style);

}  // namespace wifi_profile
