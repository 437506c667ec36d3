// Reads the settings of the checks from JSON: a scenario's world and the settings of this computer
// both contain them.
#pragma once

#include <optional>
#include <string>

#include "analysis/checks/Settings.h"
#include "runtime/JsonFields.h"

namespace wifi_profile::devices {

// Reads the settings by the names of the members of `settings`; other members keep their values.
// The reader records errors.
void readCheckSettings(const runtime::ValueReader& value, checks::Settings& settings);

// Returns the MAC address in a text, in lower case; empty: the text is not one.
std::optional<std::string> macAddressIn(std::string text);

}  // namespace wifi_profile::devices
