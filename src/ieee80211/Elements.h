// The elements of a beacon or probe response one by one (IEEE 802.11-2020, 9.4.2.1).
#pragma once

#include <cstdint>
#include <optional>

#include "ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// One element: octets id and length, then the payload. It looks into the bytes that were walked.
struct Element {
  std::uint8_t id = 0;
  std::uint8_t extension = 0;  // with kExtensionId only; the payload is what follows it
  Bytes payload;               // at most 255 octets
};

// A vendor element's front (802.11-2020, 9.4.2.25). All vendors that are read here number their
// elements with the octet after the organisation.
struct VendorElement {
  std::uint32_t oui = 0;
  std::uint8_t type = 0;
  Bytes payload;  // what follows the type
};

// Nothing for elements with another id, and for those too short.
std::optional<VendorElement> asVendorElement(const Element& element);

// Walks once over elements, in their order; whoever calls it keeps the bytes alive. An extension
// element of no length has no id and is passed over.
class ElementWalker {
 public:
  explicit ElementWalker(Bytes elements) : reader_(elements) {}

  // The next element; nothing at the end, or where an element is longer than what is left.
  std::optional<Element> next();

  // Whether the walk ended at an element that is not there whole.
  bool truncated() const { return reader_.failed(); }

 private:
  ByteReader reader_;
};

}  // namespace wifi_profile::ieee80211
