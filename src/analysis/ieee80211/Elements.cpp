#include "analysis/ieee80211/Elements.h"

#include "analysis/ieee80211/ElementIds.h"

namespace wifi_profile::ieee80211 {

std::optional<VendorElement> asVendorElement(const Element& element) {
  if (element.id != kVendorId) return std::nullopt;
  ByteReader reader(element.payload);
  VendorElement vendor;
  vendor.oui = reader.oui();
  vendor.type = reader.octet();
  vendor.payload = reader.left();
  if (reader.failed()) return std::nullopt;
  return vendor;
}

std::optional<Element> ElementWalker::next() {
  while (!reader_.atEnd()) {
    Element element;
    element.id = reader_.octet();
    element.payload = reader_.take(reader_.octet());
    if (reader_.failed()) return std::nullopt;
    if (element.id != kExtensionId) return element;
    if (element.payload.empty()) continue;
    element.extension = element.payload[0];
    element.payload = element.payload.subspan(1);
    return element;
  }
  return std::nullopt;
}

}  // namespace wifi_profile::ieee80211
