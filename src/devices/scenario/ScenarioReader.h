// Reads scenario files: from values to a scenario.
#pragma once

#include <variant>

#include "devices/scenario/Scenario.h"
#include "devices/scenario/ValueReader.h"

namespace wifi_profile::scenario {

// Reads a whole scenario. Error fields, missing fields, values of the wrong kind and numbers out
// of range are faults. Returns the first fault found.
std::variant<Scenario, Fault> readScenario(const ObjectRef& document);

}  // namespace wifi_profile::scenario
