#include "analysis/ieee80211/Beacons.h"

#include <algorithm>

#include "analysis/ieee80211/ElementIds.h"

namespace wifi_profile::ieee80211 {
namespace {

std::uint8_t low(unsigned value) { return static_cast<std::uint8_t>(value & 0xFFU); }
std::uint8_t high(unsigned value) { return static_cast<std::uint8_t>(value >> 8U & 0xFFU); }

constexpr std::uint8_t kTkip = 2;
constexpr std::uint8_t kCcmp = 4;

Octets suite(std::uint32_t oui, std::uint8_t type) {
  return {low(oui >> 16U), low(oui >> 8U), low(oui), type};
}

}  // namespace

Octets operator+(Octets one, const Octets& other) {
  one.insert(one.end(), other.begin(), other.end());
  return one;
}

Octets bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

Octets zeros(std::size_t count) { return Octets(count, 0); }

Octets element(std::uint8_t id, const Octets& payload) {
  return Octets{id, low(static_cast<unsigned>(payload.size()))} + payload;
}

Octets extensionElement(std::uint8_t extension, const Octets& payload) {
  return element(kExtensionId, Octets{extension} + payload);
}

Octets vendorElement(std::uint32_t oui, std::uint8_t type, const Octets& payload) {
  return element(kVendorId, suite(oui, type) + payload);
}

Octets ssid(std::string_view name) { return element(kSsidId, bytesOf(name)); }

Octets rsnPayload(std::initializer_list<std::uint8_t> akms, std::uint16_t capabilities) {
  Octets payload{1, 0};                                           // version
  payload = payload + suite(kStandardOui, kCcmp);                 // group
  payload = payload + Octets{1, 0} + suite(kStandardOui, kCcmp);  // pairwise
  payload = payload + Octets{low(static_cast<unsigned>(akms.size())), 0};
  for (const std::uint8_t akm : akms) payload = payload + suite(kStandardOui, akm);
  return payload + Octets{low(capabilities), high(capabilities)};
}

Octets rsn(std::initializer_list<std::uint8_t> akms, std::uint16_t capabilities) {
  return element(kRsnId, rsnPayload(akms, capabilities));
}

Octets wpa(std::uint8_t akm) {
  const Octets tkip = suite(kWpaOui, kTkip);
  return vendorElement(
      kWpaOui, kWpaType,
      Octets{1, 0} + tkip + Octets{1, 0} + tkip + Octets{1, 0} + suite(kWpaOui, akm));
}

Octets htOperation(std::uint8_t primary, std::uint8_t information, std::uint8_t segment2) {
  const unsigned next = unsigned{segment2} << 5U;
  return element(kHtOperationId,
                 Octets{primary, information, low(next), high(next)} + zeros(2 + 16));
}

Octets vhtOperation(std::uint8_t width, std::uint8_t segment0, std::uint8_t segment1) {
  return element(kVhtOperationId, {width, segment0, segment1, 0xFC, 0xFF});
}

Octets sixGhzOperation(std::uint8_t primary, std::uint8_t width, std::uint8_t segment0,
                       std::uint8_t segment1) {
  // Parameters with bit 17, BSS color, basic HE-MCS and NSS set, then the information.
  return extensionElement(kHeOperationExtension, {0x00, 0x00, 0x02, 0x05, 0xFC, 0xFF, primary,
                                                  width, segment0, segment1, 6});
}

Octets ehtOperation(std::uint8_t width, std::uint8_t segment0, std::uint8_t segment1,
                    std::optional<std::uint16_t> disabled) {
  // Parameters: information present, bitmap present.
  const Octets front{low(disabled ? 3 : 1), 0x11, 0x00, 0x00, 0x00, width, segment0, segment1};
  return extensionElement(kEhtOperationExtension,
                          disabled ? front + Octets{low(*disabled), high(*disabled)} : front);
}

Octets htCapabilities() { return element(kHtCapabilitiesId, zeros(26)); }
Octets vhtCapabilities() { return element(kVhtCapabilitiesId, zeros(12)); }
Octets heCapabilities() { return extensionElement(kHeCapabilitiesExtension, zeros(21)); }
Octets ehtCapabilities() { return extensionElement(kEhtCapabilitiesExtension, zeros(14)); }

// 1, 2, 5.5 and 11 Mbit/s, all basic.
Octets bRates() { return element(kSupportedRatesId, {0x82, 0x84, 0x8B, 0x96}); }

// Those, 9, 18, 36 and 54 Mbit/s; 6, 12, 24 and 48 Mbit/s.
Octets bgRates() {
  return element(kSupportedRatesId, {0x82, 0x84, 0x8B, 0x96, 0x12, 0x24, 0x48, 0x6C}) +
         element(kExtendedRatesId, {0x0C, 0x18, 0x30, 0x60});
}

// 6, 12 and 24 Mbit/s basic; 9, 18, 36, 48 and 54.
Octets ofdmRates() {
  return element(kSupportedRatesId, {0x8C, 0x12, 0x98, 0x24, 0xB0, 0x48, 0x60, 0x6C});
}

Octets multipleBssid(std::uint8_t bits, const Octets& subelements) {
  return element(kMultipleBssidId, Octets{bits} + subelements);
}

Octets profile(const Octets& elements) { return element(0, elements); }

Octets profileElements(std::uint16_t capabilities, std::string_view name, std::uint8_t index) {
  return element(kNontransmittedCapabilityId, {low(capabilities), high(capabilities)}) +
         ssid(name) + element(kMultipleBssidIndexId, {index, 3, 1});
}

AccessPointElements parse(const Octets& elements, std::uint16_t capabilities,
                          std::optional<int> frequency) {
  return parseAccessPointElements({.elements = elements,
                                   .capabilities = capabilities,
                                   .bssid = kSender,
                                   .frequency = frequency});
}

Octets Sample::bytes() const {
  Octets all;
  for (const Octets& one : elements) all = std::move(all) + one;
  return all;
}

const Sample& sample(std::string_view name) {
  return *std::ranges::find(samples(), name, &Sample::name);
}

AccessPointElements parse(const Sample& sample) {
  return parse(sample.bytes(), sample.capabilities, sample.frequency);
}

}  // namespace wifi_profile::ieee80211
