// Which batches a run consists of, and why one is missing.
#pragma once

#include <cstdint>

#include "platform/ExcludedNetworks.h"
#include "platform/Text.h"

namespace wifi_profile {

struct RunPlan {
  bool runCurrentNetwork;
  bool runSelectedNetwork;
  std::int32_t totalTests;         // 11, 27, 40 or 56
  std::int64_t statusCode;         // with which the run will end: 0, -6 or -7
  TextRef currentName = nullptr;   // nil: not joined
  TextRef selectedName = nullptr;  // nil: none
};

// Plans a run on a device joined to `currentName` (nil: not joined) with `selectedName` (nil: none)
// selected. The batch of an excluded network is left out. The joined network's batch is not run a
// second time when it is the selected one; names are compared exactly, so a name that differs in
// case only is another network.
RunPlan planRun(const TextRef& currentName, const TextRef& selectedName);

}  // namespace wifi_profile
