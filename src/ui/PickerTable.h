// How the network picker's table is made up.
#pragma once

#include <cstdint>

namespace wifi_profile {

// The selected network has a section of its own above that of the listed ones.
inline constexpr std::int64_t kSelectedSection = 0;
inline constexpr std::int64_t kNetworksSection = 1;

// The name under which the table makes and reuses its cells.
inline constexpr const char* kCellIdentifier = "cellIdentifier";

}  // namespace wifi_profile
