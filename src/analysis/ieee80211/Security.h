// A network's security as one value.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/ieee80211/ElementSet.h"
#include "analysis/ieee80211/Suites.h"

namespace wifi_profile::ieee80211 {

enum class Security {
  none,                // open
  owe,                 // encrypted without a password
  wep,                 // encrypted; no element names the method
  wpaPersonal,         // WPA alone; a network with WPA and WPA2 counts as WPA2
  wpaEnterprise,       //
  wpa2Personal,        //
  wpa2Enterprise,      //
  wpa2Wpa3Personal,    // transition mode: PSK and SAE
  wpa2Wpa3Enterprise,  // transition mode: 802.1X with SHA-1 as well as with SHA-256, as in WPA3
  wpa3Personal,        // SAE
  wpa3Enterprise,      // 802.1X where management frames must be protected, or 192 bit
  unknown,             // damaged, contradicting, or of a kind that is none of these
};

// The elements that determine the security.
struct SecurityElements {
  std::optional<RsnElement> rsn;
  std::optional<RsnElement> wpa;

  bool operator==(const SecurityElements&) const = default;
};

SecurityElements readSecurityElements(const ElementSet& elements);

// `capabilities` is the Capability Information field (802.11-2020, 9.4.1.4); its privacy bit
// decides if there is neither RSN nor WPA. If the elements are truncated and RSN is absent, the
// security is unknown, because RSN may have been cut off.
Security summarize(const ElementSet& elements, const SecurityElements& read,
                   std::uint16_t capabilities);

}  // namespace wifi_profile::ieee80211
