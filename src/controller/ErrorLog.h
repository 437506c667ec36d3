// The diagnostic's own error lines.
#pragma once

#include <string>
#include <string_view>

#include "platform/DiagnosticLog.h"

namespace wifi_profile {

// The log category of everything but the Wi-Fi manager's set-up.
inline constexpr int kDiagnosticsLogCategory = 3;
inline constexpr int kWiFiManagerLogCategory = 0;

inline constexpr std::string_view kErrorPrefix = "[ERROR] - Wi-Fi Profile: ";

// Writes one error line, `kErrorPrefix` and the text that `compose()` returns, which
// is composed only where errors are logged.
template <class Compose>
void logError(Compose compose) {
  DiagnosticLogHandleForCategory(kDiagnosticsLogCategory).error([&] {
    return std::string(kErrorPrefix) + compose();
  });
}

}  // namespace wifi_profile
