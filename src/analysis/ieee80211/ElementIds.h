// Ids of the elements that the parsers read (IEEE 802.11-2020, 9.4.2.1, table of element ids;
// 802.11ax; 802.11be).
#pragma once

#include <cstdint>

namespace wifi_profile::ieee80211 {

inline constexpr std::uint8_t kSsidId = 0;
inline constexpr std::uint8_t kSupportedRatesId = 1;
inline constexpr std::uint8_t kDsParameterSetId = 3;
inline constexpr std::uint8_t kTimId = 5;
inline constexpr std::uint8_t kCountryId = 7;
inline constexpr std::uint8_t kBssLoadId = 11;
inline constexpr std::uint8_t kHtCapabilitiesId = 45;
inline constexpr std::uint8_t kRsnId = 48;
inline constexpr std::uint8_t kExtendedRatesId = 50;
inline constexpr std::uint8_t kHtOperationId = 61;
inline constexpr std::uint8_t kWapiId = 68;  // security by another standard, GB 15629.11
inline constexpr std::uint8_t kMultipleBssidId = 71;
inline constexpr std::uint8_t kNontransmittedCapabilityId = 83;
inline constexpr std::uint8_t kMultipleBssidIndexId = 85;
inline constexpr std::uint8_t kInterworkingId = 107;
inline constexpr std::uint8_t kVhtCapabilitiesId = 191;
inline constexpr std::uint8_t kVhtOperationId = 192;
inline constexpr std::uint8_t kVendorId = 221;
inline constexpr std::uint8_t kExtensionId = 255;  // the payload begins with an extension id

// Extension ids of elements with kExtensionId.
inline constexpr std::uint8_t kHeCapabilitiesExtension = 35;    // 802.11ax
inline constexpr std::uint8_t kHeOperationExtension = 36;       // 802.11ax
inline constexpr std::uint8_t kNonInheritanceExtension = 56;    // 802.11-2020, 9.4.2.240
inline constexpr std::uint8_t kEhtOperationExtension = 106;     // 802.11be
inline constexpr std::uint8_t kEhtCapabilitiesExtension = 108;  // 802.11be

// Organisations: their three bytes as one number. kWpaOui numbers vendor elements that are older
// than their counterparts in the standard; kAllianceOui is the Wi-Fi Alliance.
inline constexpr std::uint32_t kWpaOui = 0x0050F2;
inline constexpr std::uint32_t kAllianceOui = 0x506F9A;
inline constexpr std::uint32_t kStandardOui = 0x000FAC;  // suites of the standard

// Types of vendor elements.
inline constexpr std::uint8_t kWpaType = 1;       // of kWpaOui
inline constexpr std::uint8_t kWpsType = 4;       // of kWpaOui; Wi-Fi Simple Configuration
inline constexpr std::uint8_t kHotspotType = 16;  // of kAllianceOui; Hotspot 2.0 Indication
inline constexpr std::uint8_t kOsenType = 18;     // of kAllianceOui; Hotspot 2.0, sign-up only
inline constexpr std::uint8_t kOweTransitionType = 28;  // of kAllianceOui

}  // namespace wifi_profile::ieee80211
