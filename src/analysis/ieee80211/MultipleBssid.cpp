#include "analysis/ieee80211/MultipleBssid.h"

#include <map>
#include <utility>

#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/ElementSet.h"

namespace wifi_profile::ieee80211 {
namespace {

constexpr std::uint8_t kProfileSubelement = 0;
constexpr int kMostBits = 8;

using Octets = std::vector<std::uint8_t>;

bool beginsProfile(Bytes elements) {
  return !elements.empty() && elements[0] == kNontransmittedCapabilityId;
}

bool isWhole(Bytes elements) {
  ElementWalker walker(elements);
  while (walker.next()) {
  }
  return !walker.truncated();
}

// Joins the pieces of profiles that were split. A split never falls inside an element, so a piece
// that ends inside one is damaged, and its whole profile is dropped.
class Joiner {
 public:
  // Takes the subelements of one Multiple BSSID element. Returns false if the last one is cut off.
  bool add(Bytes subelements) {
    bool atFront = true;
    ElementWalker walker(subelements);
    while (const auto subelement = walker.next()) {
      if (subelement->id != kProfileSubelement) continue;
      addPiece(subelement->payload, std::exchange(atFront, false));
    }
    return !walker.truncated();
  }

  std::vector<Octets> joined() && {
    finish();
    return std::move(whole_);
  }

 private:
  void addPiece(Bytes piece, bool atFront) {
    if (beginsProfile(piece)) {
      finish();
      open_.emplace();
    } else if (!atFront) {
      // Only the first piece of an element can continue an earlier profile.
      finish();
    }
    if (!open_) return;
    if (isWhole(piece)) {
      open_->insert(open_->end(), piece.begin(), piece.end());
    } else {
      open_.reset();
    }
  }

  void finish() {
    if (open_) whole_.push_back(std::move(*open_));
    open_.reset();
  }

  std::optional<Octets> open_;
  std::vector<Octets> whole_;
};

std::optional<NontransmittedProfile> readProfile(Octets elements, int bits) {
  const ElementSet set(elements);
  const auto capability = set.payload(Kind::nontransmittedCapability);
  const auto index = set.payload(Kind::multipleBssidIndex);
  if (!capability || !index || index->empty() || !set.payload(Kind::ssid)) return std::nullopt;
  ByteReader reader(*capability);
  NontransmittedProfile profile;
  profile.capabilities = reader.number16();
  profile.index = index->front();
  if (reader.failed() || profile.index == 0 || profile.index >= 1 << bits) return std::nullopt;
  profile.elements = std::move(elements);
  return profile;
}

}  // namespace

Bssid deriveBssid(const Bssid& transmitted, int bits, std::uint8_t index) {
  const unsigned mask = (1U << static_cast<unsigned>(bits)) - 1U;
  const unsigned last = transmitted.back();
  Bssid derived = transmitted;
  derived.back() = static_cast<std::uint8_t>((last & ~mask) | ((last + index) & mask));
  return derived;
}

std::optional<NontransmittedProfiles> readNontransmittedProfiles(const std::vector<Bytes>& parts) {
  NontransmittedProfiles all;
  Joiner joiner;
  for (const Bytes& part : parts) {
    if (part.empty() || part[0] < 1 || part[0] > kMostBits) return std::nullopt;
    if (all.bits != 0 && all.bits != part[0]) return std::nullopt;
    all.bits = part[0];
    if (!joiner.add(part.subspan(1))) return std::nullopt;
  }
  // By index; empty if two profiles with that index differ.
  std::map<std::uint8_t, std::optional<NontransmittedProfile>> byIndex;
  for (Octets& elements : std::move(joiner).joined()) {
    auto profile = readProfile(std::move(elements), all.bits);
    if (!profile) continue;
    const auto index = profile->index;
    const auto known = byIndex.find(index);
    if (known == byIndex.end()) {
      byIndex.emplace(index, std::move(profile));
    } else if (known->second && known->second->elements != profile->elements) {
      known->second.reset();
    }
  }
  for (auto& [index, profile] : byIndex) {
    if (profile) all.profiles.push_back(std::move(*profile));
  }
  return all;
}

}  // namespace wifi_profile::ieee80211
