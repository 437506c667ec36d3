// Which batches a run consists of, and why a batch is missing.
#pragma once

#include <cstdint>

#include "diagnostic/platform/ExcludedNetworks.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile {

struct RunPlan {
  bool runCurrentNetwork;
  bool runSelectedNetwork;
  std::int32_t totalTests;         // 11, 27, 40 or 56
  std::int64_t statusCode;         // of the end of the run: 0, -6 or -7
  TextRef currentName = nullptr;   // nil: not joined
  TextRef selectedName = nullptr;  // nil: no network is selected
};

// Plans a run on a device that has joined `currentName` (nil: not joined), with `selectedName`
// selected (nil: no network). The batch of an excluded network is omitted. If the selected network
// is the joined one, its tests do not run twice. Names are compared exactly: names that differ only
// in case are different networks.
RunPlan planRun(const TextRef& currentName, const TextRef& selectedName);

}  // namespace wifi_profile
