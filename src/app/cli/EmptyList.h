// Explains why the list of networks is empty.
#pragma once

#include <optional>
#include <string>

#include "app/PersonScreen.h"
#include "diagnostic/platform/TestOutcome.h"

namespace wifi_profile {
class WiFiProfileViewController;
}

namespace wifi_profile::cli {

// `scan` is the latest scan for the list; empty: none has ended. `powerOnFailure` is why the radio
// stayed off; empty: the radio did not fail to turn on, or the reason is unknown. Leaves
// `askForPower` of the result empty. Main thread.
app::EmptyList emptyListOf(const WiFiProfileViewController& controller,
                           const std::optional<TestOutcome>& scan, std::string powerOnFailure);

}  // namespace wifi_profile::cli
