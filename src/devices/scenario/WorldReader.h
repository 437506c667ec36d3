// Reads the `world` of a scenario file: from values to facts.
#pragma once

#include "devices/scenario/World.h"
#include "runtime/JsonFields.h"

namespace wifi_profile::scenario {

// Reads a whole world. A fact that it does not contain becomes Error, with a sentence that names
// the missing fact. Pure; the reader records errors.
World readWorld(const runtime::ValueReader& value);

}  // namespace wifi_profile::scenario
