// The capabilities and the terminology of this kind of device.
#pragma once

#include <string_view>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"

namespace wifi_profile {

class DeviceCapability : public Interface {
 public:
  virtual int boolAnswer(std::string_view key) = 0;
};

// Answers a yes-or-no question about the device; only the lowest bit of the answer counts. The
// question "wapi" is whether the device says WLAN instead of Wi-Fi.
inline int QdGetBoolAnswer(std::string_view key) {
  return InstalledPlatform::get(&Platform::capability, "the device capability")->boolAnswer(key);
}

}  // namespace wifi_profile
