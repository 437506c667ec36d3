// Describes the diagnostic's screen for the trace.
#pragma once

#include "controller/WiFiProfileViewController.h"
#include "platform/Trace.h"

namespace wifi_profile {

// Returns the fields of the trace's `screen` event. Main thread.
Trace::Fields screenState(WiFiProfileViewController& controller);

}  // namespace wifi_profile
