// The scenario that is built into the program.
#pragma once

#include <string_view>

namespace wifi_profile::cli {

// JSON, as in scenarios/demo.json.
extern const std::string_view kDemoScenario;

}  // namespace wifi_profile::cli
