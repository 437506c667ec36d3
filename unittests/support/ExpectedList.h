// The list that a scan should give, computed again in the plainest way: what random tests expect.
#pragma once

#include <map>
#include <string>

#include "diagnostic/platform/Array.h"
#include "diagnostic/wifi/NetworkDictionary.h"

namespace wifi_profile {

struct ExpectedList {
  std::map<std::string, ScanResultRef> distinct;
  std::map<std::string, ScanResultRef> filtered;
  NetworkList listed;     // in any order
  ScanResultRef current;  // nil: not heard, so that the one before stays
};

// Lists the strongest result of each name; of equally strong ones, the first. The joined access
// point (the last result with its address) is in `distinct` only. Other results with the name of
// the joined network are in neither dictionary.
ExpectedList expectedFrom(const ArrayRef& results, const VqWiFiStatusRef& status);

// Takes the selected network out of the list and, if `joinedComesIn`, puts `current` in. Does
// nothing if the selected and the joined network have the same name or if the scan lacks the
// selected one.
void moveSelectedOut(ExpectedList& expected, const TextRef& selectedName, const TextRef& joinedName,
                     const ScanResultRef& current, bool joinedComesIn);

// Returns whether the list and the dictionaries have the expected networks.
bool areAsExpected(const ExpectedList& expected, const NetworkList& list,
                   const NetworkDictionary& filtered, const NetworkDictionary& distinct);

}  // namespace wifi_profile
