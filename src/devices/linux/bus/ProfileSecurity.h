// The security of a saved network. Pure functions.
#pragma once

#include <string>

#include "analysis/ieee80211/Security.h"
#include "devices/linux/bus/BusValue.h"

namespace wifi_profile::linux::bus {

// From NetworkManager's settings, a{sa{sv}}.
ieee80211::Security securityFromProfile(const BusValue& settings);

// From a network's properties in wpa_supplicant, a{sv} with values as in its configuration file.
ieee80211::Security securityFromSupplicant(const BusValue& properties);

// From iwd's type of a network: open, wep, psk, 8021x, hotspot.
ieee80211::Security securityFromIwd(const std::string& type);

}  // namespace wifi_profile::linux::bus
