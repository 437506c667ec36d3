// The security of a network, from its elements: suites of ciphers and of key management. Parsers
// take an element's payload and return empty if it is damaged. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "analysis/ieee80211/Bytes.h"
#include "analysis/ieee80211/ElementIds.h"

namespace wifi_profile::ieee80211 {

// One method of key management: the organisation that numbered it, and its number.
struct Suite {
  std::uint32_t oui = 0;
  std::uint8_t type = 0;

  bool operator==(const Suite&) const = default;
};

// Authentication and key management of kStandardOui (802.11-2020, 9.4.2.24.3; 24 and 25: 802.11be).
// kWpaOui also has 1 and 2.
namespace akm {
inline constexpr std::uint8_t k8021X = 1;
inline constexpr std::uint8_t kPsk = 2;
inline constexpr std::uint8_t kFt8021X = 3;
inline constexpr std::uint8_t kFtPsk = 4;
inline constexpr std::uint8_t k8021XSha256 = 5;
inline constexpr std::uint8_t kPskSha256 = 6;
inline constexpr std::uint8_t kSae = 8;
inline constexpr std::uint8_t kFtSae = 9;
inline constexpr std::uint8_t kSuiteB = 11;
inline constexpr std::uint8_t kSuiteB192 = 12;
inline constexpr std::uint8_t kFtSuiteB192 = 13;
inline constexpr std::uint8_t kFilsSha256 = 14;
inline constexpr std::uint8_t kFilsSha384 = 15;
inline constexpr std::uint8_t kFtFilsSha256 = 16;
inline constexpr std::uint8_t kFtFilsSha384 = 17;
inline constexpr std::uint8_t kOwe = 18;
inline constexpr std::uint8_t kFtPskSha384 = 19;
inline constexpr std::uint8_t kPskSha384 = 20;
inline constexpr std::uint8_t kFt8021XSha384 = 22;
inline constexpr std::uint8_t k8021XSha384 = 23;
inline constexpr std::uint8_t kSaeExtendedKey = 24;
inline constexpr std::uint8_t kFtSaeExtendedKey = 25;
}  // namespace akm

// RSN (802.11-2020, 9.4.2.24), or its predecessor WPA. An element may end after any field: the
// missing field and all later ones are empty. Its ciphers are not kept.
struct RsnElement {
  std::vector<Suite> akms;
  std::uint16_t capabilities = 0;

  // Protection of management frames (802.11-2020, 9.4.2.24.4, bits 6 and 7).
  bool requiresManagementProtection() const { return (capabilities & 0x40U) != 0; }
  bool hasManagementProtection() const { return (capabilities & 0x80U) != 0; }

  bool operator==(const RsnElement&) const = default;
};

// A version other than 1 counts as damaged, because its layout is unknown.
std::optional<RsnElement> parseRsn(Bytes payload);

// Takes the payload after the vendor's type. WPA has no PMKIDs and no management cipher.
std::optional<RsnElement> parseWpa(Bytes payload);

// Returns whether the payload, after the vendor's type, links an open network and its encrypted
// twin (Wi-Fi Alliance, Opportunistic Wireless Encryption, transition mode).
bool isOweTransition(Bytes payload);

}  // namespace wifi_profile::ieee80211
