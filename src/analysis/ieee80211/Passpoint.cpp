#include "analysis/ieee80211/Passpoint.h"

namespace wifi_profile::ieee80211 {

std::optional<Interworking> parseInterworking(Bytes payload) {
  constexpr std::size_t kOptions = 1;
  constexpr std::size_t kVenue = 2;
  constexpr std::size_t kHessid = 6;
  // Venue and HESSID are each optional.
  const std::size_t size = payload.size();
  if (size != kOptions && size != kOptions + kVenue && size != kOptions + kHessid &&
      size != kOptions + kVenue + kHessid) {
    return std::nullopt;
  }
  return Interworking{.accessNetworkType = static_cast<std::uint8_t>(payload[0] & 0x0FU),
                      .additionalStepNeeded = (payload[0] & 0x20U) != 0};
}

bool isHotspotIndication(Bytes payload) {
  ByteReader reader(payload);
  const unsigned configuration = reader.octet();
  if ((configuration & 0x02U) != 0) reader.take(2);  // source of a subscription's settings
  if ((configuration & 0x04U) != 0) reader.take(2);  // domain of the network's services
  return !reader.failed();
}

}  // namespace wifi_profile::ieee80211
