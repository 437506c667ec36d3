// The networks of a scan, as lists and by name.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "diagnostic/platform/DiagnosticsService.h"

namespace wifi_profile {

using ScanResultRef = std::shared_ptr<const VqWiFiScanResult>;
using NetworkList = std::vector<ScanResultRef>;             // no element is nil or without a name
using NetworkListRef = std::shared_ptr<const NetworkList>;  // nil: no list yet

struct NameHash {
  std::size_t operator()(const TextRef& name) const {
    return std::hash<std::string>()(name->string());
  }
};
struct NameEquality {
  bool operator()(const TextRef& one, const TextRef& other) const {
    return one->string() == other->string();
  }
};
using NetworksByName = std::unordered_map<TextRef, ScanResultRef, NameHash, NameEquality>;

// One network for each name. Names are equal if their bytes are equal. A value type: a copy is a
// separate dictionary, and cheap, because copies share the networks of the scan. Any thread may
// read while no thread writes.
class NetworkDictionary {
 public:
  NetworkDictionary() = default;
  // No key and no network is nil.
  explicit NetworkDictionary(std::shared_ptr<const NetworksByName> networks)
      : scanned_(std::move(networks)) {}

  // Returns nil for a nil name or an unknown one.
  ScanResultRef networkNamed(const TextRef& name) const {
    const ScanResultRef* const found = find(name);
    return found ? *found : nullptr;
  }
  bool contains(const TextRef& name) const { return find(name) != nullptr; }

  // Adds the network, or replaces the one that has its name. The network must not be nil or without
  // a name.
  void set(const ScanResultRef& network) { changes_[network->ssidString()] = network; }
  // Does nothing for a nil name or an unknown one.
  void remove(const TextRef& name);

  // In no particular order.
  NetworkList networks() const;

 private:
  const ScanResultRef* find(const TextRef& name) const;

  std::shared_ptr<const NetworksByName> scanned_ = std::make_shared<const NetworksByName>();
  NetworksByName changes_;  // since then; nil: removed
};

using NetworkDictionaryRef = std::shared_ptr<const NetworkDictionary>;  // nil: no dictionary yet

}  // namespace wifi_profile
