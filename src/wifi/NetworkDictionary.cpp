#include "wifi/NetworkDictionary.h"

#include <cassert>
#include <utility>

namespace wifi_profile {
namespace {

std::uint64_t hashOf(const ScanResultRef& network) { return network->ssidString()->hash(); }

}  // namespace

NetworkDictionary::NetworkDictionary(NetworkList networks)
    : networks_(std::move(networks)), positions_(networks_.size()) {
  HashIndex::Position position = 0;
  for (const ScanResultRef& network : networks_) positions_.add(hashOf(network), position++);
}

ScanResultRef NetworkDictionary::networkNamed(const TextRef& name) const {
  const HashIndex::Position found = find(name);
  return found == HashIndex::kNone ? nullptr : networks_[found];
}

void NetworkDictionary::set(ScanResultRef network) {
  assert(network && network->ssidString());
  const HashIndex::Position found = find(network->ssidString());
  if (found != HashIndex::kNone) {
    networks_[found] = std::move(network);
    return;
  }
  positions_.add(hashOf(network), static_cast<HashIndex::Position>(networks_.size()));
  networks_.push_back(std::move(network));
}

void NetworkDictionary::remove(const TextRef& name) {
  const HashIndex::Position found = find(name);
  if (found == HashIndex::kNone) return;
  const auto last = static_cast<HashIndex::Position>(networks_.size() - 1);
  positions_.remove(name->hash(), found);
  if (found != last) {
    positions_.move(hashOf(networks_[last]), last, found);
    networks_[found] = std::move(networks_[last]);
  }
  networks_.pop_back();
}

HashIndex::Position NetworkDictionary::find(const TextRef& name) const {
  if (!name) return HashIndex::kNone;
  return positions_.find(name->hash(), [&](HashIndex::Position position) {
    const TextRef& candidate = networks_[position]->ssidString();
    return candidate == name || candidate->string() == name->string();
  });
}

}  // namespace wifi_profile
