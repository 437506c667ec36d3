#include "diagnostic/wifi/NetworkDictionary.h"

namespace wifi_profile {

// Null: not found.
const ScanResultRef* NetworkDictionary::find(const TextRef& name) const {
  if (!name) return nullptr;
  const auto changed = changes_.find(name);
  if (changed != changes_.end()) return changed->second ? &changed->second : nullptr;
  const auto found = scanned_->find(name);
  return found == scanned_->end() ? nullptr : &found->second;
}

void NetworkDictionary::remove(const TextRef& name) {
  if (contains(name)) changes_[name] = nullptr;
}

NetworkList NetworkDictionary::networks() const {
  NetworkList list;
  list.reserve(scanned_->size() + changes_.size());
  for (const auto& [name, network] : *scanned_) {
    if (!changes_.contains(name)) list.push_back(network);
  }
  for (const auto& [name, network] : changes_) {
    if (network) list.push_back(network);
  }
  return list;
}

}  // namespace wifi_profile
