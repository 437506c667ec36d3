// Describes the diagnostic's screen for the trace.
#pragma once

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::cli {

// Returns the fields of the trace's `screen` event. Main thread.
Trace::Fields screenState(WiFiProfileViewController& controller);

}  // namespace wifi_profile::cli
