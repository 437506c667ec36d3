// Elements and whole beacons made by hand from the formats of IEEE 802.11.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/ieee80211/AccessPointElements.h"

namespace wifi_profile::ieee80211 {

using Octets = std::vector<std::uint8_t>;

Octets operator+(Octets one, const Octets& other);
Octets bytesOf(std::string_view text);
Octets zeros(std::size_t count);

Octets element(std::uint8_t id, const Octets& payload);
Octets extensionElement(std::uint8_t extension, const Octets& payload);
Octets vendorElement(std::uint32_t oui, std::uint8_t type, const Octets& payload);

Octets ssid(std::string_view name);

// RSN with CCMP for all, the given ways to agree on keys, and capabilities.
Octets rsnPayload(std::initializer_list<std::uint8_t> akms, std::uint16_t capabilities = 0);
Octets rsn(std::initializer_list<std::uint8_t> akms, std::uint16_t capabilities = 0);

// WPA with TKIP for all.
Octets wpa(std::uint8_t akm);

// 22 octets; `information` is the first octet of the HT Operation Information, `segment2` the
// middle that stands in its bits 13 to 20.
Octets htOperation(std::uint8_t primary, std::uint8_t information, std::uint8_t segment2 = 0);
Octets vhtOperation(std::uint8_t width, std::uint8_t segment0, std::uint8_t segment1);
// HE Operation with 6 GHz Operation Information.
Octets sixGhzOperation(std::uint8_t primary, std::uint8_t width, std::uint8_t segment0,
                       std::uint8_t segment1);
Octets ehtOperation(std::uint8_t width, std::uint8_t segment0, std::uint8_t segment1,
                    std::optional<std::uint16_t> disabled = {});

// Capabilities of the right size, without any.
Octets htCapabilities();
Octets vhtCapabilities();
Octets heCapabilities();
Octets ehtCapabilities();

// The rates of 802.11b, and those of 802.11g on top, in both elements.
Octets bRates();
Octets bgRates();
Octets ofdmRates();

// A Multiple BSSID element, and a subelement of it that holds a profile's elements.
Octets multipleBssid(std::uint8_t bits, const Octets& subelements);
Octets profile(const Octets& elements);
// The elements of a profile: capability, name, index with DTIM period 3 and count 1.
Octets profileElements(std::uint16_t capabilities, std::string_view name, std::uint8_t index);

inline constexpr std::uint16_t kOpenCapabilities = 0x0401;     // ESS, short slot time
inline constexpr std::uint16_t kPrivateCapabilities = 0x0411;  // and privacy
inline constexpr Bssid kSender{0x02, 0x00, 0x5E, 0x10, 0x20, 0x3A};

// The result for a frame of kSender.
AccessPointElements parse(const Octets& elements, std::uint16_t capabilities = kOpenCapabilities,
                          std::optional<int> frequency = {});

// Frames as access points really send them.
struct Sample {
  std::string name;  // fit for a file's name
  std::uint16_t capabilities;
  std::optional<int> frequency;
  std::vector<Octets> elements;  // one each

  Octets bytes() const;
};

const std::vector<Sample>& samples();
const Sample& sample(std::string_view name);
AccessPointElements parse(const Sample& sample);

}  // namespace wifi_profile::ieee80211
