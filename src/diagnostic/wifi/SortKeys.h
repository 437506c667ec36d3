// The sort keys of network names, cached from scan to scan.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "diagnostic/platform/Mutex.h"
#include "diagnostic/wifi/NetworkDictionary.h"

namespace wifi_profile {

using SortKey = std::shared_ptr<const std::string>;  // never nil

// Any thread.
class SortKeys {
 public:
  // Returns the sort key of the name of each network. The shared `NameCollator`, which must stay
  // the same, computes the key of a name that is not cached. Afterwards the cache holds the names
  // of the list, and at most as many others.
  std::vector<SortKey> of(const NetworkList& list);

 private:
  struct Entry {
    SortKey key;
    std::uint64_t lastUse = 0;
  };

  Mutex mutex_;
  std::unordered_map<std::string, Entry> entries_ GUARDED_BY(mutex_);  // by name
  std::uint64_t use_ GUARDED_BY(mutex_) = 0;                           // calls of `of`
};

}  // namespace wifi_profile
