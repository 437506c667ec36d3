#include "diagnostic/wifi/NetworkDictionary.h"

#include <cassert>
#include <utility>

namespace wifi_profile {
namespace {

std::uint64_t hashOf(const ScanResultRef& network) { return network->ssidString()->hash(); }

}  // namespace

NetworkDictionary::NetworkDictionary(NetworkList networks)
    : networks_(std::move(networks)), positions_(networks_.size()) {
  Position position = 0;
  for (const ScanResultRef& network : networks_) positions_.add(hashOf(network), position++);
}

ScanResultRef NetworkDictionary::networkNamed(const TextRef& name) const {
  const Position found = positionOf(name);
  return found == kNone ? nullptr : networks_[found];
}

void NetworkDictionary::set(ScanResultRef network) {
  assert(network && network->ssidString());
  const Position found = positionOf(network->ssidString());
  if (found != kNone) {
    networks_[found] = std::move(network);
    return;
  }
  positions_.add(hashOf(network), static_cast<Position>(networks_.size()));
  networks_.push_back(std::move(network));
}

void NetworkDictionary::remove(const TextRef& name) {
  const Position found = positionOf(name);
  if (found == kNone) return;
  const auto last = static_cast<Position>(networks_.size() - 1);
  positions_.remove(name->hash(), found);
  if (found != last) {
    positions_.move(hashOf(networks_[last]), last, found);
    networks_[found] = std::move(networks_[last]);
  }
  networks_.pop_back();
}

NetworkDictionary::Position NetworkDictionary::search(const Text& name) const {
  return positions_.find(name.hash(), [&](Position position) { return isAt(position, name); });
}

}  // namespace wifi_profile
