// Converts the raw results of a scan to the list of networks on the screen. Pure functions on
// values; any thread.
#pragma once

#include <cstdint>
#include <vector>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/wifi/NetworkDictionary.h"
#include "diagnostic/wifi/SortKeys.h"

namespace wifi_profile {

// The networks of a scan, one for each name. The dictionaries and the list are never nil.
struct Deduplicated {
  NetworkDictionaryRef distinct;  // including the network that the device has joined
  NetworkDictionaryRef filtered;  // without that network: the listed networks
  NetworkListRef listed;          // the networks of `filtered`, in display order, then by bytes
  ScanResultRef current;          // the access point that the device has joined; nil: not found
};

// Takes the strongest result of each name; of equally strong ones, the earliest. `results` are the
// results of a scan in their order; nil counts as an empty array. Objects of other types and
// results without a name are skipped. The result with the address of the joined access point is
// `current` and is in `distinct` regardless of its strength; if there are several, the last one
// counts. Other results with the name of the joined network are dropped. A nil `status` means that
// no network is joined.
Deduplicated deduplicated(const ArrayRef& results, const VqWiFiStatusRef& status,
                          SortKeys& sortKeys);

// Returns the list in the display order of the names. Names that compare equal keep their order.
// Returns the same object if it is already in order, and nil for nil.
NetworkListRef sortedByName(const NetworkListRef& list, SortKeys& sortKeys);

// Returns the list in the display order of the names. Of names that compare equal, those that
// `before` has come first, in its order; the others follow in their own order. A table that shows
// `before` then keeps its rows in the order of the list. If both lists have a name more than once,
// its first occurrence in `list` takes the place of the first in `before`, and so on. Returns the
// same object if it is already in order, and nil for nil. A nil `before` counts as an empty list.
NetworkListRef sortedByNameAfter(const NetworkListRef& before, const NetworkListRef& list,
                                 SortKeys& sortKeys);

// Returns the list without every occurrence of this object; the same list if there is none.
NetworkListRef without(const NetworkListRef& list, const ScanResultRef& network);

// Returns the list with the network appended; the same list if either is nil.
NetworkListRef with(const NetworkListRef& list, const ScanResultRef& network);

// Returns the positions in `list`, ascending, of the networks whose names `dictionary` lacks. A nil
// list has no positions; a nil dictionary lacks all names.
std::vector<std::int64_t> rowsMissingFrom(const NetworkListRef& list,
                                          const NetworkDictionaryRef& dictionary);

}  // namespace wifi_profile
