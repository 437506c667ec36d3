// The list of a scan as one would write it without a thought for its cost: what the list of
// src/diagnostic/wifi/ is measured against, and must equal.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unicode/ucol.h>
#include <unordered_map>
#include <vector>

#include "diagnostic/wifi/ScanList.h"

namespace wifi_profile {

struct PlainNetworks {
  std::unordered_map<std::string, ScanResultRef> distinct;
  std::unordered_map<std::string, ScanResultRef> filtered;
  std::vector<ScanResultRef> listed;
};

struct PlainRows {
  std::vector<std::int64_t> lost;
  std::vector<std::int64_t> found;
};

class PlainScanList {
 public:
  // Names in the order of English, with no regard to case.
  PlainScanList();

  // Everything from nothing; the list is sorted by comparing names with each other.
  PlainNetworks pairByPair(const ArrayRef& results, const VqWiFiStatus& status) const;

  // As above; the list is sorted by sort keys that are made beforehand.
  PlainNetworks bySortKeys(const ArrayRef& results, const VqWiFiStatus& status) const;

  // Only the order: `networks` by comparing names with each other.
  void sortPairByPair(std::vector<ScanResultRef>& networks) const;

  // Rows that one list lost and another found, by two sets of names.
  static PlainRows rows(const std::vector<ScanResultRef>& before,
                        const std::vector<ScanResultRef>& after);

 private:
  std::unique_ptr<UCollator, decltype(&ucol_close)> collator_;
};

}  // namespace wifi_profile
