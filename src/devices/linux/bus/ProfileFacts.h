// Parses NetworkManager's dictionaries into facts. Pure functions; a value of a wrong type counts
// as missing.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/bus/BusValue.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::bus {

// The longest list of texts or networks that is read from the bus.
inline constexpr std::size_t kLongestBusList = 5000;

// NetworkManager's data about the active connection, as its methods and properties returned them;
// empty values where they did not answer.
struct ActiveProfileSources {
  BusValue settings;      // Settings.Connection.GetSettings, a{sa{sv}}
  BusValue device;        // properties of the Device, a{sv}
  BusValue dhcp4Options;  // DHCP4Config.Options, a{sv}
};

// notTold: the settings do not name a known method for IPv4 and for IPv6.
Result<facts::ActiveProfile> activeProfileFrom(const ActiveProfileSources& sources);

// Parses a profile of Settings.ListConnections, from its GetSettings. Empty if it is not a profile
// for joining a Wi-Fi network: it has another type, sets up an access point on this machine, or has
// no name of 1 to 32 bytes.
std::optional<facts::SavedNetwork> savedNetworkFrom(const BusValue& settings);

// Returns the link's servers, IPv4 first, from the properties of IP4Config and IP6Config, a{sv}.
std::vector<std::string> dnsServersFrom(const BusValue& ip4Config, const BusValue& ip6Config);

// Returns the URL of the captive portal API from a DHCPv4 answer (option 114), at most 2048 bytes.
std::optional<std::string> captivePortalApiFrom(const BusValue& dhcp4Options);

// From seconds since 1970-01-01 00:00:00 UTC. Empty for 0 and less, and for years after 9999.
std::optional<Date> dateFromUnixTime(std::int64_t seconds);

}  // namespace wifi_profile::linux::bus
