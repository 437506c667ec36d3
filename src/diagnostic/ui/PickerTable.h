// The structure of the table of the network picker.
#pragma once

#include <cstdint>

namespace wifi_profile {

// The selected network has its own section, above that of the listed networks.
inline constexpr std::int64_t kSelectedSection = 0;
inline constexpr std::int64_t kNetworksSection = 1;

// The identifier under which the table creates and reuses its cells.
inline constexpr const char* kCellIdentifier = "cellIdentifier";

}  // namespace wifi_profile
