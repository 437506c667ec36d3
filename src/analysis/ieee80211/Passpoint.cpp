#include "analysis/ieee80211/Passpoint.h"

namespace wifi_profile::ieee80211 {

std::optional<Interworking> parseInterworking(Bytes payload) {
  constexpr std::size_t kOptions = 1;
  constexpr std::size_t kVenue = 2;
  constexpr std::size_t kHessid = 6;
  const std::size_t size = payload.size();
  // Venue and HESSID are each optional: the size shows which are present.
  const bool hasVenue = size == kOptions + kVenue || size == kOptions + kVenue + kHessid;
  const bool hasHessid = size == kOptions + kHessid || size == kOptions + kVenue + kHessid;
  if (size != kOptions && !hasVenue && !hasHessid) return std::nullopt;
  ByteReader reader(payload);
  const unsigned options = reader.octet();
  Interworking interworking;
  interworking.accessNetworkType = static_cast<std::uint8_t>(options & 0x0FU);
  interworking.internet = (options & 0x10U) != 0;
  interworking.additionalStepNeeded = (options & 0x20U) != 0;
  if (hasVenue) {
    interworking.venueGroup = reader.octet();
    interworking.venueType = reader.octet();
  }
  if (hasHessid) {
    std::ranges::copy(reader.take(kHessid), interworking.hessid.emplace().begin());
  }
  return interworking;
}

std::optional<RoamingConsortium> parseRoamingConsortium(Bytes payload) {
  constexpr std::size_t kShortest = 3;  // 802.11-2020, 9.4.1.31
  constexpr std::size_t kLongest = 15;  // of the two identifiers whose length field has four bits
  ByteReader reader(payload);
  RoamingConsortium consortium;
  consortium.more = reader.octet();
  const unsigned sizes = reader.octet();
  const Bytes first = reader.take(sizes & 0x0FU);
  const Bytes second = reader.take(sizes >> 4U);
  if (reader.failed() || first.empty() || (second.empty() && !reader.atEnd())) return std::nullopt;
  for (const Bytes& organization : {first, second, reader.left()}) {
    if (organization.empty()) continue;
    if (organization.size() < kShortest || organization.size() > kLongest) return std::nullopt;
    consortium.organizations.push_back(toText(organization));
  }
  return consortium;
}

std::optional<Hotspot> parseHotspot(Bytes payload) {
  ByteReader reader(payload);
  const unsigned configuration = reader.octet();
  Hotspot hotspot;
  hotspot.groupForwardingDisabled = (configuration & 0x01U) != 0;
  if ((configuration & 0x02U) != 0) reader.take(2);  // source of a subscription's settings
  if ((configuration & 0x04U) != 0) hotspot.anqpDomain = reader.number16();
  hotspot.release = static_cast<std::uint8_t>((configuration >> 4U) + 1U);
  if (reader.failed()) return std::nullopt;
  return hotspot;
}

}  // namespace wifi_profile::ieee80211
