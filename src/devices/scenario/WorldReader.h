// The `world` of a scenario file: from values to facts.
#pragma once

#include "devices/scenario/ValueReader.h"
#include "devices/scenario/World.h"

namespace wifi_profile::scenario {

// Reads a whole world. A fact that it does not tell is Unknown, with a sentence that says what the
// world leaves out. Pure; what will not do is noted in the reader.
World readWorld(const ValueReader& value);

// Reads what is set about the checks, by the names of the members of `settings`; what is not set
// stays. Pure; what will not do is noted in the reader.
void readCheckSettings(const ValueReader& value, checks::Settings& settings);

}  // namespace wifi_profile::scenario
