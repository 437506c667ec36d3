// Reads the `world` of a scenario file: from values to facts.
#pragma once

#include "devices/scenario/ValueReader.h"
#include "devices/scenario/World.h"

namespace wifi_profile::scenario {

// Reads a whole world. A fact that it does not contain becomes Error, with a sentence that names
// the missing fact. Pure; the reader records faults.
World readWorld(const ValueReader& value);

// Reads the settings of the checks, by the names of the members of `settings`; other members keep
// their values. Pure; the reader records faults.
void readCheckSettings(const ValueReader& value, checks::Settings& settings);

}  // namespace wifi_profile::scenario
