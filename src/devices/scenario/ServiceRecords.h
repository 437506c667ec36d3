// The information of a test's result: plain values, and the service's records under certain keys.
#pragma once

#include "runtime/JsonFields.h"

namespace wifi_profile::scenario {

// Reads an object of information. An object under "PingResult", the key of a channel or
// "PreferredNetwork", and a list under "ScanResults", become the service's records. All other
// values remain as they are.
DictionaryRef readInformation(const runtime::ValueReader& value);

}  // namespace wifi_profile::scenario
