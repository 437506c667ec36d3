#include "analysis/ieee80211/ElementSet.h"

#include <algorithm>

#include "analysis/ieee80211/ElementIds.h"

namespace wifi_profile::ieee80211 {
namespace {

// The numbers that identify an element of a kind.
struct Form {
  Kind kind;
  std::uint8_t id;
  std::uint8_t extension = 0;
  std::uint32_t oui = 0;
  std::uint8_t type = 0;
};

constexpr Form vendor(Kind kind, std::uint32_t oui, std::uint8_t type) {
  return {.kind = kind, .id = kVendorId, .extension = 0, .oui = oui, .type = type};
}

// In the order of Kind.
constexpr std::array<Form, kKindCount> kForms{{
    {Kind::ssid, kSsidId},
    {Kind::supportedRates, kSupportedRatesId},
    {Kind::dsParameterSet, kDsParameterSetId},
    {Kind::tim, kTimId},
    {Kind::country, kCountryId},
    {Kind::bssLoad, kBssLoadId},
    {Kind::htCapabilities, kHtCapabilitiesId},
    {Kind::rsn, kRsnId},
    {Kind::extendedRates, kExtendedRatesId},
    {Kind::htOperation, kHtOperationId},
    {Kind::wapi, kWapiId},
    {Kind::multipleBssid, kMultipleBssidId},
    {Kind::nontransmittedCapability, kNontransmittedCapabilityId},
    {Kind::multipleBssidIndex, kMultipleBssidIndexId},
    {Kind::interworking, kInterworkingId},
    {Kind::vhtCapabilities, kVhtCapabilitiesId},
    {Kind::vhtOperation, kVhtOperationId},
    {Kind::heCapabilities, kExtensionId, kHeCapabilitiesExtension},
    {Kind::heOperation, kExtensionId, kHeOperationExtension},
    {Kind::nonInheritance, kExtensionId, kNonInheritanceExtension},
    {Kind::ehtOperation, kExtensionId, kEhtOperationExtension},
    {Kind::ehtCapabilities, kExtensionId, kEhtCapabilitiesExtension},
    vendor(Kind::wpa, kWpaOui, kWpaType),
    vendor(Kind::wps, kWpaOui, kWpsType),
    vendor(Kind::hotspot, kAllianceOui, kHotspotType),
    vendor(Kind::osen, kAllianceOui, kOsenType),
    vendor(Kind::oweTransition, kAllianceOui, kOweTransitionType),
}};

constexpr bool isInOrderOfKind() {
  for (std::size_t i = 0; i < kForms.size(); ++i) {
    if (kForms[i].kind != static_cast<Kind>(i)) return false;
  }
  return true;
}
static_assert(isInOrderOfKind());

// False for the elements of which every network has its own (802.11-2020, 9.4.2.45) or none.
constexpr bool isHeritable(Kind kind) {
  switch (kind) {
    case Kind::ssid:
    case Kind::tim:
    case Kind::multipleBssid:
    case Kind::nontransmittedCapability:
    case Kind::multipleBssidIndex:
    case Kind::nonInheritance:
      return false;
    default:
      return true;
  }
}

// Two lists, each preceded by its length: element ids and extension ids (802.11-2020, 9.4.2.240).
struct NonInheritance {
  Bytes ids;
  Bytes extensions;

  bool names(const Form& form) const {
    return form.id == kExtensionId ? std::ranges::count(extensions, form.extension) > 0
                                   : std::ranges::count(ids, form.id) > 0;
  }
};

std::optional<NonInheritance> parseNonInheritance(Bytes payload) {
  ByteReader reader(payload);
  NonInheritance lists;
  lists.ids = reader.take(reader.octet());
  lists.extensions = reader.take(reader.octet());
  if (reader.failed()) return std::nullopt;
  return lists;
}

}  // namespace

ElementSet::ElementSet(Bytes elements) {
  ElementWalker walker(elements);
  while (const auto element = walker.next()) {
    const auto ofVendor = asVendorElement(*element);
    const auto form = std::ranges::find_if(kForms, [&](const Form& candidate) {
      if (candidate.id != element->id || candidate.extension != element->extension) return false;
      if (element->id != kVendorId) return true;
      return ofVendor && candidate.oui == ofVendor->oui && candidate.type == ofVendor->type;
    });
    if (form != kForms.end()) add(form->kind, ofVendor ? ofVendor->payload : element->payload);
  }
  truncated_ = walker.truncated();
}

void ElementSet::add(Kind kind, Bytes payload) {
  if (kind == Kind::wps) wpsParts_.push_back(payload);
  if (kind == Kind::multipleBssid) multipleBssidParts_.push_back(payload);
  Slot& slot = slots_[static_cast<std::size_t>(kind)];
  if (!slot.found) {
    slot = {.payload = payload, .found = true, .contradicting = false};
  } else if (!areEqual(slot.payload, payload)) {
    slot.contradicting = true;
  }
}

std::optional<Bytes> ElementSet::payload(Kind kind) const {
  if (!slot(kind).found || slot(kind).contradicting) return std::nullopt;
  return slot(kind).payload;
}

const std::vector<Bytes>& ElementSet::parts(Kind kind) const {
  return kind == Kind::wps ? wpsParts_ : multipleBssidParts_;
}

bool ElementSet::inherit(const ElementSet& transmitted) {
  NonInheritance excluded;
  if (has(Kind::nonInheritance)) {
    const auto lists = payload(Kind::nonInheritance);
    const auto parsed = lists ? parseNonInheritance(*lists) : std::nullopt;
    if (!parsed) return false;
    excluded = *parsed;
  }
  const bool hasOwnWps = has(Kind::wps);
  for (const Form& form : kForms) {
    Slot& own = slots_[static_cast<std::size_t>(form.kind)];
    if (own.found || !isHeritable(form.kind) || excluded.names(form)) continue;
    own = transmitted.slot(form.kind);
  }
  if (!hasOwnWps && has(Kind::wps)) wpsParts_ = transmitted.wpsParts_;
  truncated_ = truncated_ || transmitted.truncated_;
  return true;
}

}  // namespace wifi_profile::ieee80211
