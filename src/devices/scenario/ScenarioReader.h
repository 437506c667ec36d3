// Reads scenario files: from values to a scenario.
#pragma once

#include <string_view>

#include "devices/scenario/Scenario.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::scenario {

// Reads a whole scenario. Unknown fields, missing fields, values of the wrong kind and numbers out
// of range are errors. Returns the first error. Its subject is "NAME: at POINTER"; without a name,
// "at POINTER".
Result<Scenario> readScenario(const ObjectRef& document, std::string_view name = {});

}  // namespace wifi_profile::scenario
