// What a person would see of the diagnostic's screen.
#pragma once

#include "controller/WiFiProfileViewController.h"
#include "platform/Trace.h"

namespace wifi_profile {

// The fields of the trace's `screen` event. Main thread.
Trace::Fields screenState(WiFiProfileViewController& controller);

}  // namespace wifi_profile
