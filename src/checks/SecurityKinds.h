// A network's security as people name it, and which securities go together. Pure functions; any
// thread.
#pragma once

#include <optional>
#include <string_view>

#include "ieee80211/Security.h"

namespace wifi_profile::checks {

// Such as "WPA2 Personal"; empty for unknown.
std::string_view textOf(ieee80211::Security security);

// Securities of one kind can belong to one network and one profile: a box that goes from WPA2 to
// WPA3 keeps its password, and an open network its encrypted twin (OWE).
enum class KeyKind { open, wep, personal, enterprise };

// Nothing for unknown.
std::optional<KeyKind> keyKindOf(ieee80211::Security security);

}  // namespace wifi_profile::checks
