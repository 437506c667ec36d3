// The information of a test's result: plain values, and the service's records under their keys.
#pragma once

#include "devices/scenario/ValueReader.h"

namespace wifi_profile::scenario {

// Reads an object of information. Values stay what they are, but an object under "PingResult", a
// channel's key or "PreferredNetwork", and a list under "ScanResults", become the service's
// records.
DictionaryRef readInformation(const ValueReader& value);

}  // namespace wifi_profile::scenario
