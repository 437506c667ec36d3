#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"

namespace wifi_profile::ieee80211 {
namespace {

// Count 0, period 2, no bitmap control, one octet of bitmap.
Octets tim() { return element(kTimId, {0, 2, 0, 0}); }

Octets channel(std::uint8_t number) { return element(kDsParameterSetId, {number}); }

// Germany, indoor and outdoor, channels 1 to 13 at 20 dBm, padding to an even length.
Octets germany() { return element(kCountryId, {'D', 'E', ' ', 1, 13, 20}); }

Octets load(std::uint8_t stations, std::uint8_t utilization) {
  return element(kBssLoadId, {stations, 0, utilization, 0, 0});
}

// Attributes of a probe response: version 1.0, configured, names.
Octets wps() {
  const auto attribute = [](std::uint8_t low, std::string_view value) {
    return Octets{0x10, low, 0, static_cast<std::uint8_t>(value.size())} + bytesOf(value);
  };
  return vendorElement(kWpaOui, kWpsType,
                       attribute(0x4A, "\x10") + attribute(0x44, "\x02") +
                           attribute(0x21, "Fictional Radios") + attribute(0x23, "Home Box") +
                           attribute(0x24, "7490-X") + attribute(0x11, "Living room"));
}

Octets peerToPeer() {
  // Wi-Fi Direct. Attribute 2, P2P Capability: device and group capability.
  return vendorElement(kAllianceOui, 9, {2, 2, 0, 0x25, 0x01});
}

std::vector<Octets> passpoint() {
  return {ssid("Airport"), ofdmRates(), tim(), load(42, 200), rsn({akm::k8021X}), htCapabilities(),
          htOperation(149, 0),
          // Free public, with Internet; venue group 10, type 1 (an airport); HESSID.
          element(kInterworkingId, {0x13, 10, 1, 2, 0, 0x5E, 0x10, 0x20, 0x30}),
          // Roaming Consortium: two more; one of 3 bytes, one of 5, one of 3.
          element(111, {2, 0x53, 0x00, 0x1B, 0xC5, 1, 2, 3, 4, 5, 0x50, 0x6F, 0x9A}),
          // Release 2, no broadcasts among members, ANQP domain 7.
          vendorElement(kAllianceOui, kHotspotType, {0x15, 7, 0})};
}

std::vector<Octets> oweTransition() {
  const Octets twin{0x02, 0x00, 0x5E, 0x10, 0x20, 0x3B};
  return {ssid("Cafe"), ofdmRates(), htCapabilities(), htOperation(44, 0x07),
          vendorElement(kAllianceOui, kOweTransitionType, twin + Octets{8} + bytesOf("Cafe_owe"))};
}

// Three networks: the sender, one open and one that inherits, split over two elements.
std::vector<Octets> threeNetworks() {
  return {ssid("Office"),
          ofdmRates(),
          tim(),
          rsn({akm::kSae}, 0xC0),
          multipleBssid(2, profile(profileElements(kOpenCapabilities, "Guests", 1) +
                                   extensionElement(kNonInheritanceExtension, {1, kRsnId, 0})) +
                               profile(profileElements(kPrivateCapabilities, "Things", 2))),
          multipleBssid(2, profile(load(3, 20))),
          element(244, {0x20}),  // RSNX
          heCapabilities(),
          sixGhzOperation(37, 3, 39, 47)};
}

std::vector<Sample> makeSamples() {
  return {
      {"old-open", kOpenCapabilities, 2412, {ssid("Attic"), bRates(), channel(1), tim()}},
      {"hidden-wep",
       kPrivateCapabilities,
       2462,
       {element(kSsidId, zeros(8)), bgRates(), channel(11), tim()}},
      {"home-wpa2-40",
       kPrivateCapabilities,
       2437,
       {ssid("Birkenweg 12"), bgRates(), channel(6), tim(), germany(), load(5, 128),
        rsn({akm::kPsk}), htCapabilities(), htOperation(6, 0x07), wps(), peerToPeer()}},
      {"wpa-and-wpa2",
       kPrivateCapabilities,
       2412,
       {ssid("Mixed"), bgRates(), channel(1), rsn({akm::kPsk}), wpa(akm::kPsk)}},
      {"ac-80",
       kPrivateCapabilities,
       5180,
       {ssid("Five"), ofdmRates(), tim(), germany(), rsn({akm::kPsk, akm::kSae}, 0x80),
        htCapabilities(), htOperation(36, 0x05), vhtCapabilities(), vhtOperation(1, 42, 0)}},
      {"ax-160",
       kPrivateCapabilities,
       5260,
       {ssid("Wide"), ofdmRates(), rsn({akm::kSae}, 0xC0), htCapabilities(), htOperation(52, 0x05),
        vhtCapabilities(), vhtOperation(1, 58, 50), heCapabilities()}},
      {"passpoint", kPrivateCapabilities, 5745, passpoint()},
      {"owe-transition", kOpenCapabilities, 5220, oweTransition()},
      {"three-networks", kPrivateCapabilities, 6135, threeNetworks()},
      {"be-320",
       kPrivateCapabilities,
       5975,
       {ssid("Widest"), ofdmRates(), rsn({akm::kSaeExtendedKey}, 0xC0), heCapabilities(),
        sixGhzOperation(5, 3, 7, 15), ehtCapabilities(), ehtOperation(4, 15, 31, 0xF000)}},
  };
}

}  // namespace

const std::vector<Sample>& samples() {
  static const std::vector<Sample> all = makeSamples();
  return all;
}

}  // namespace wifi_profile::ieee80211
