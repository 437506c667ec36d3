// What a finished run found, as the document that every screen shows and the text report prints.
#pragma once

#include <cstdint>

#include "host/Journal.h"
#include "platform/Dictionary.h"
#include "platform/Text.h"
#include "screens/Report.h"

namespace wifi_profile {

// A finished run.
struct Outcome {
  std::int64_t statusCode = 0;
  DictionaryRef data;           // the three sections, no longer changing; nil: all are empty
  TextRef selectedNetworkName;  // nil: none was selected
};

// The sections device, current network, selected network, in this order; those of a run that ended
// early only where they hold something. In each, the findings as sentences with their values, and
// what could not be found out, with why. Whatever kinds of values the record holds, there is a
// document. Any thread.
Report reportOf(const Outcome& outcome, const Journal& journal);

}  // namespace wifi_profile
