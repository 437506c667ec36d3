// The name under which the picker's table makes and reuses its cells.
#pragma once

namespace wifi_profile {

inline constexpr const char* kCellIdentifier = "cellIdentifier";

}  // namespace wifi_profile
