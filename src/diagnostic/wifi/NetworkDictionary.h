// The networks of a scan, as lists and by name.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/wifi/HashIndex.h"

namespace wifi_profile {

using ScanResultRef = std::shared_ptr<const VqWiFiScanResult>;

using NetworkList = std::vector<ScanResultRef>;             // no element is nil or without a name
using NetworkListRef = std::shared_ptr<const NetworkList>;  // nil: no list yet

// One network for each name. Names are equal if their bytes are equal. A value type: a copy is a
// separate dictionary of the same networks. Any thread may read while no thread writes.
class NetworkDictionary {
 public:
  NetworkDictionary() = default;

  // Every network must have a name, and no two names may be equal.
  explicit NetworkDictionary(NetworkList networks);

  // Returns nil for a nil name or an unknown one.
  ScanResultRef networkNamed(const TextRef& name) const;
  bool contains(const TextRef& name) const { return positionOf(name) != kNone; }
  std::size_t count() const { return networks_.size(); }

  // Adds the network, or replaces the one that has its name. The network must not be nil or without
  // a name.
  void set(ScanResultRef network);

  // Does nothing for a nil name or an unknown one.
  void remove(const TextRef& name);

  // In the order of the list passed to the constructor, except for networks set or removed since.
  const NetworkList& networks() const { return networks_; }

  using Position = HashIndex::Position;
  static constexpr Position kNone = HashIndex::kNone;

  // Returns the position in `networks` of the network with this name, or kNone. A correct `guess`
  // saves the search; a wrong guess, of any value, does no harm.
  Position positionOf(const TextRef& name, Position guess = kNone) const {
    if (!name) return kNone;
    return guess < networks_.size() && isAt(guess, *name) ? guess : search(*name);
  }

 private:
  bool isAt(Position position, const Text& name) const {
    const Text& candidate = *networks_[position]->ssidString();
    return candidate.hash() == name.hash() && candidate.string() == name.string();
  }
  Position search(const Text& name) const;

  NetworkList networks_;
  HashIndex positions_;  // in `networks_`, by name
};

using NetworkDictionaryRef = std::shared_ptr<const NetworkDictionary>;  // nil: no dictionary yet

}  // namespace wifi_profile
