// What holds for every result, whatever the bytes were.
#pragma once

#include <string>

#include "analysis/ieee80211/AccessPointElements.h"

namespace wifi_profile::ieee80211 {

// The first rule that the result breaks, in words; empty when it keeps them all.
std::string brokenRule(const ReceivedFrame& frame, const AccessPointElements& result);

}  // namespace wifi_profile::ieee80211
