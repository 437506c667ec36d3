// The elements of one network, found by kind.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/ieee80211/Elements.h"

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
  vhtCapabilities,
  vhtOperation,
  heCapabilities,
  heOperation,
  nonInheritance,
  ehtOperation,
  ehtCapabilities,
  wpa,
  wps,
  hotspot,
  osen,
  oweTransition,
};

inline constexpr std::size_t kKindCount = static_cast<std::size_t>(Kind::oweTransition) + 1;

// Built in one walk over the bytes. Refers to these bytes, which must outlive it. Repeated elements
// of one kind are valid while all have the same contents; if they differ, none can be trusted, and
// the kind counts as damaged. Only WPS and Multiple BSSID may be split into several elements.
class ElementSet {
 public:
  explicit ElementSet(Bytes elements);

  // True if the last element is cut off: absent elements may then be lost.
  bool truncated() const { return truncated_; }

  // True if there is such an element, damaged or not.
  bool has(Kind kind) const { return slot(kind).found; }

  // The payload (of vendor elements: after the type). Empty if the element is absent or
  // contradictory.
  std::optional<Bytes> payload(Kind kind) const;

  // The payloads of Kind::wps or Kind::multipleBssid, in the order of the bytes.
  const std::vector<Bytes>& parts(Kind kind) const;

  // For the set of a nontransmitted profile: copies the elements that the profile lacks from the
  // transmitting network's set (802.11-2020, 11.1.3.8.4). Leaves out the elements that every
  // network has of its own and those that the profile's Non-Inheritance element names. Returns
  // false and copies none if that element is damaged.
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
