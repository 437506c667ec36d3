#pragma once

#include <string>

#include "devices/scenario/ScenarioReader.h"

// Reading the `world` of a scenario, for the tests of its parts.
namespace wifi_profile::scenario {

// A scenario that has nothing but `world` (JSON).
Result<Scenario> read(const std::string& world);
// Fails the test and is empty if `world` is refused.
World worldOf(const std::string& world);
facts::Facts facts(const std::string& world);
// "<pointer>: found <found>, expected <expected>"; empty if `world` is not refused.
std::string faultIn(const std::string& world);

// A scan of one access point with a BSSID and `fields`, such as `,"channel":6`.
facts::AccessPoint accessPoint(const std::string& fields);
std::string faultInAccessPoint(const std::string& fields);

}  // namespace wifi_profile::scenario
