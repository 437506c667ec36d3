// The elements of a beacon or probe response, one by one (IEEE 802.11-2020, 9.4.2.1).
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// One element: an id octet, a length octet and the payload. Refers to the bytes of the walk.
struct Element {
  std::uint8_t id = 0;
  std::uint8_t extension = 0;  // only with kExtensionId; the payload follows it
  Bytes payload;               // at most 255 octets
};

// The start of a vendor element (802.11-2020, 9.4.2.25). All vendors read here put the element's
// type into the octet after the organisation.
struct VendorElement {
  std::uint32_t oui = 0;
  std::uint8_t type = 0;
  Bytes payload;  // after the type
};

// Empty for elements with another id and for those that are too short.
std::optional<VendorElement> asVendorElement(const Element& element);

// Walks once over the elements in their order. The caller keeps the bytes alive. An extension
// element of length 0 has no extension id and is skipped.
class ElementWalker {
 public:
  explicit ElementWalker(Bytes elements) : reader_(elements) {}

  // The next element. Empty at the end, or if an element is longer than the remaining bytes.
  std::optional<Element> next();

  // True if the walk ended at an incomplete element.
  bool truncated() const { return reader_.failed(); }

 private:
  ByteReader reader_;
};

}  // namespace wifi_profile::ieee80211
