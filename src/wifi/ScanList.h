// From the raw results of a scan to the list of networks on screen. Pure functions on values; any
// thread.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Array.h"
#include "platform/DiagnosticsService.h"
#include "wifi/NameOrder.h"
#include "wifi/NetworkDictionary.h"

namespace wifi_profile {

// What remains of a scan: one network for each name. Neither the dictionaries nor the list are nil.
struct Deduplicated {
  NetworkDictionaryRef distinct;  // with the network that the device is joined to
  NetworkDictionaryRef filtered;  // without it: what is listed
  NetworkListRef listed;          // the networks of `filtered`, by name for people, then by bytes
  ScanResultRef current;          // the access point that the device is joined to; nil: not heard
};

// Takes the strongest result of each name, and of equally strong ones the earliest. `results` are
// those of a scan in their order; nil counts as none, and objects of another kind are passed over,
// as are results without a name. The result with the joined access point's address is `current`
// and in `distinct` whatever its strength (the last one, if there are several); other results with
// the joined network's name are dropped. `status` nil: not joined.
Deduplicated deduplicated(const ArrayRef& results, const VqWiFiStatusRef& status, NameOrder& order);

// The list by name for people; names that compare equal stay in the order that they have. The same
// object when it is in order already. nil for nil.
NetworkListRef sortedByName(const NetworkListRef& list, NameOrder& order);

// The list by name for people; of names that compare equal, those that `before` has come first, in
// its order, then the others in the order that they have. A table that shows `before` then keeps
// its rows in the order of the list. Where both lists have a name more than once, the first of it
// goes where the first was, and so on. The same object when it is in order already. nil for nil;
// `before` nil: an empty list.
NetworkListRef sortedByNameAfter(const NetworkListRef& before, const NetworkListRef& list,
                                 NameOrder& order);

// The list without every element that is this very object. The same list when there is none.
NetworkListRef without(const NetworkListRef& list, const ScanResultRef& network);

// The list with the network after its last element. The same list when either is nil.
NetworkListRef with(const NetworkListRef& list, const ScanResultRef& network);

// The positions in `list`, ascending, of the networks whose names `dictionary` lacks. A nil list
// has none; a nil dictionary lacks all.
std::vector<std::int64_t> rowsMissingFrom(const NetworkListRef& list,
                                          const NetworkDictionaryRef& dictionary);

}  // namespace wifi_profile
