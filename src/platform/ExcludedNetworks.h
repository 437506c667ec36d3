// Networks that are not tested.
#pragma once

#include "platform/Text.h"

namespace wifi_profile {

// Whether a network's owner asks not to be surveyed: its name ends with "_nomap", in any letter
// case. NO for nil.
inline bool isExcludedFromRuns(const TextRef& name) { return endsWithIgnoringCase(name, "_nomap"); }

}  // namespace wifi_profile
