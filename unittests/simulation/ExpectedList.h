// What a scan should make of the list, reckoned anew and in the plainest way.
#pragma once

#include <map>
#include <string>

#include "diagnostic/controller/WiFiProfileViewController.h"

namespace wifi_profile::simulation {

struct ExpectedList {
  std::map<std::string, ScanResultRef> distinct;
  std::map<std::string, ScanResultRef> filtered;
  NetworkList listed;     // in no order
  ScanResultRef current;  // nil: not heard, so that the one before stays
};

// One result a name: the strongest, and of equally strong ones the first. The joined access point
// (the latest with its address) is only among the distinct ones; the others of the joined network
// are nowhere.
ExpectedList expectedFrom(const ArrayRef& results, const VqWiFiStatusRef& status);

// The selected network goes out of the list, the joined one comes in if `joinedComesIn`; nothing
// happens if they have the same name or if the scan has not heard the selected one.
void moveSelectedOut(ExpectedList& expected, const TextRef& selectedName, const TextRef& joinedName,
                     const ScanResultRef& current, bool joinedComesIn);

// Whether the list and the dictionary hold what is expected.
bool areAsExpected(const ExpectedList& expected, const NetworkList& list,
                   const NetworkDictionary& filtered, const NetworkDictionary& distinct);

}  // namespace wifi_profile::simulation
