// The status codes of a run.
#pragma once

#include <cstdint>

namespace wifi_profile {

// A negative code is the reason why the run, or one of its batches, did not take place. -1 is not
// used.
inline constexpr std::int64_t kStatusCompleted = 0;
inline constexpr std::int64_t kStatusNoWiFiManager = -2;  // also: no Wi-Fi radio
inline constexpr std::int64_t kStatusNoWiFiDevice = -3;
inline constexpr std::int64_t kStatusPowerOnDeclined = -4;
inline constexpr std::int64_t kStatusWiFiSwitchedOff = -5;         // while the picker was in use
inline constexpr std::int64_t kStatusCurrentNetworkExcluded = -6;  // its name ends with "_nomap"
inline constexpr std::int64_t kStatusSelectedNetworkExcluded = -7;

}  // namespace wifi_profile
