// The names of the securities, and which securities go together. Pure functions; any thread.
#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "analysis/ieee80211/Security.h"

namespace wifi_profile::facts {

inline constexpr std::array<std::pair<std::string_view, ieee80211::Security>, 12> kSecurityNames{
    {{"unknown", ieee80211::Security::unknown},
     {"None", ieee80211::Security::none},
     {"OWE", ieee80211::Security::owe},
     {"WEP", ieee80211::Security::wep},
     {"WPA Personal", ieee80211::Security::wpaPersonal},
     {"WPA Enterprise", ieee80211::Security::wpaEnterprise},
     {"WPA2 Personal", ieee80211::Security::wpa2Personal},
     {"WPA2 Enterprise", ieee80211::Security::wpa2Enterprise},
     {"WPA2/WPA3 Personal", ieee80211::Security::wpa2Wpa3Personal},
     {"WPA2/WPA3 Enterprise", ieee80211::Security::wpa2Wpa3Enterprise},
     {"WPA3 Personal", ieee80211::Security::wpa3Personal},
     {"WPA3 Enterprise", ieee80211::Security::wpa3Enterprise}}};

// Returns the name; empty for unknown.
std::string_view textOf(ieee80211::Security security);

// Securities of one kind can belong to one network and one profile. An access point that changes
// from WPA2 to WPA3 keeps its password, and an open network can have an encrypted twin (OWE).
enum class KeyKind { open, wep, personal, enterprise };

// Empty for unknown.
std::optional<KeyKind> keyKindOf(ieee80211::Security security);

}  // namespace wifi_profile::facts
