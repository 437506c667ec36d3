// The error lines of the diagnostic.
#pragma once

#include <string>
#include <string_view>

#include "diagnostic/platform/DiagnosticLog.h"

namespace wifi_profile {

// The log category of everything except the set-up of the Wi-Fi manager.
inline constexpr int kDiagnosticsLogCategory = 3;
inline constexpr int kWiFiManagerLogCategory = 0;

inline constexpr std::string_view kErrorPrefix = "[ERROR] - Wi-Fi Profile: ";

// Writes one error line: `kErrorPrefix` and the text that `compose` returns. Calls `compose` only
// if errors are logged.
template <class Compose>
void logError(Compose compose) {
  DiagnosticLogHandleForCategory(kDiagnosticsLogCategory).error([&] {
    return std::string(kErrorPrefix) + compose();
  });
}

}  // namespace wifi_profile
