// The networks of a scan, as lists and by name.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/DiagnosticsService.h"
#include "wifi/HashIndex.h"

namespace wifi_profile {

using ScanResultRef = std::shared_ptr<const VqWiFiScanResult>;

using NetworkList = std::vector<ScanResultRef>;  // no element is nil, none is without a name
using NetworkListRef = std::shared_ptr<const NetworkList>;  // nil: no list yet

// One network for each name; names are equal when their bytes are. A value: a copy is a dictionary
// of its own, of the same networks. Reading is safe on any thread while nobody writes.
class NetworkDictionary {
 public:
  NetworkDictionary() = default;

  // `networks` must have names, and no two the same.
  explicit NetworkDictionary(NetworkList networks);

  // nil for a nil name or an unknown one.
  ScanResultRef networkNamed(const TextRef& name) const;
  bool contains(const TextRef& name) const { return positionOf(name) != kNone; }
  std::size_t count() const { return networks_.size(); }

  // Puts the network under its name, in place of the one that was there. It must not be nil or
  // without a name.
  void set(ScanResultRef network);

  // Nothing happens for a nil name or an unknown one.
  void remove(const TextRef& name);

  // In the order of the list that the dictionary was made of, but for what was set and removed.
  const NetworkList& networks() const { return networks_; }

  using Position = HashIndex::Position;
  static constexpr Position kNone = HashIndex::kNone;

  // Where in `networks` the network of this name is, or kNone. Who can guess it saves the search
  // when the guess is right; a wrong guess, of any value, does no harm.
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
