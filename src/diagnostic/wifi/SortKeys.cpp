#include "diagnostic/wifi/SortKeys.h"

#include "diagnostic/platform/NameCollator.h"

namespace wifi_profile {

std::vector<SortKey> SortKeys::of(const NetworkList& list) {
  const NameCollator& collator = *NameCollator::shared();
  const MutexLock lock(mutex_);
  ++use_;
  std::vector<SortKey> keys;
  keys.reserve(list.size());
  for (const ScanResultRef& network : list) {
    const std::string& name = network->ssidString()->string();
    Entry& entry = entries_[name];
    if (!entry.key) entry.key = std::make_shared<const std::string>(collator.sortKey(name));
    entry.lastUse = use_;
    keys.push_back(entry.key);
  }
  if (entries_.size() > 2 * list.size()) {
    std::erase_if(entries_,
                  [use = use_](const auto& entry) { return entry.second.lastUse != use; });
  }
  return keys;
}

}  // namespace wifi_profile
