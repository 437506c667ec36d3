// The record as a person reads it.
#pragma once

#include <cstdint>
#include <string>

#include "host/Journal.h"
#include "platform/Dictionary.h"

namespace wifi_profile {

// A finished run.
struct Outcome {
  std::int64_t statusCode = 0;
  DictionaryRef data;           // the three sections, no longer changing
  TextRef selectedNetworkName;  // nil: none was selected
};

struct ReportStyle {
  bool color = false;  // with the terminal's colours; signs stand beside every colour
};

// The report: the sections device, current network, selected network; in each, the findings as
// sentences with their values, marked good, worth a look or a problem, with advice where there is
// something to do; what could not be found out, and why. Ends with a newline. Holds nothing from
// the record that a terminal would act on.
std::string reportText(const Outcome& outcome, const Journal& journal, ReportStyle style);

}  // namespace wifi_profile
