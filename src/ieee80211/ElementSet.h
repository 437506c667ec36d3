// The elements of one network that are read, found by kind.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "ieee80211/Elements.h"

namespace wifi_profile::ieee80211 {

enum class Kind : std::uint8_t {
  ssid,
  supportedRates,
  dsParameterSet,
  tim,
  country,
  bssLoad,
  htCapabilities,
  rsn,
  extendedRates,
  htOperation,
  wapi,
  multipleBssid,
  nontransmittedCapability,
  multipleBssidIndex,
  interworking,
  roamingConsortium,
  vhtCapabilities,
  vhtOperation,
  rsnExtension,
  heCapabilities,
  heOperation,
  nonInheritance,
  ehtOperation,
  ehtCapabilities,
  wpa,
  wps,
  peerToPeer,
  hotspot,
  osen,
  oweTransition,
};

inline constexpr std::size_t kKindCount = static_cast<std::size_t>(Kind::oweTransition) + 1;

// Made in one walk; looks into the bytes that it was made from, which must outlive it. A kind that
// comes more than once counts while all say the same; when they differ, nobody can tell which one
// is true, and it counts as damaged. WPS and Multiple BSSID are the two that may come in parts.
class ElementSet {
 public:
  explicit ElementSet(Bytes elements);

  // Whether the last element is cut off: then what is absent may have been lost with it.
  bool truncated() const { return truncated_; }

  // Whether there is such an element, damaged or not.
  bool has(Kind kind) const { return slot(kind).found; }

  // The payload (of vendor elements: after the type); nothing when it is absent or contradicting.
  std::optional<Bytes> payload(Kind kind) const;

  // The payloads of Kind::wps or Kind::multipleBssid in order.
  const std::vector<Bytes>& parts(Kind kind) const;

  // For the set of a nontransmitted profile: takes over what it does not have itself from the
  // transmitting network's (802.11-2020, 11.1.3.8.4), but for what every network has of its own and
  // what the profile's Non-Inheritance element names. NO, with nothing taken over, when that
  // element is damaged.
  bool inherit(const ElementSet& transmitted);

 private:
  struct Slot {
    Bytes payload;
    bool found = false;
    bool contradicting = false;
  };

  const Slot& slot(Kind kind) const { return slots_[static_cast<std::size_t>(kind)]; }
  void add(Kind kind, Bytes payload);

  std::array<Slot, kKindCount> slots_;
  std::vector<Bytes> wpsParts_;
  std::vector<Bytes> multipleBssidParts_;
  bool truncated_ = false;
};

}  // namespace wifi_profile::ieee80211
