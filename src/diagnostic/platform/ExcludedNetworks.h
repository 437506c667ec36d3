// Networks that the diagnostic does not test.
#pragma once

#include "diagnostic/platform/Text.h"

namespace wifi_profile {

// Returns whether the name ends with "_nomap", in any letter case: the owner of the network opts
// out of surveys. False for nil.
inline bool isExcludedFromRuns(const TextRef& name) { return endsWithIgnoringCase(name, "_nomap"); }

}  // namespace wifi_profile
