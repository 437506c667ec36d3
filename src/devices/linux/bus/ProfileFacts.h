// NetworkManager's dictionaries as facts. Pure functions; a value of a wrong type is as good as
// none.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/bus/BusValue.h"

namespace wifi_profile::machine {

// No list of texts or networks from the bus gets longer than this.
inline constexpr std::size_t kLongestBusList = 5000;

// What NetworkManager says of the active connection, each the way its method or property returned
// it; nothing where it did not.
struct ActiveProfileSources {
  BusValue settings;      // Settings.Connection.GetSettings, a{sa{sv}}
  BusValue device;        // properties of the Device, a{sv}
  BusValue dhcp4Options;  // DHCP4Config.Options, a{sv}
};

// notTold where the settings do not name a method that is known, for IPv4 and for IPv6.
checks::Known<checks::ActiveProfile> activeProfileFrom(const ActiveProfileSources& sources);

// One profile of Settings.ListConnections, from its GetSettings. Nothing where it is no profile to
// join a Wi-Fi network with: another type, an access point of the device's own, no name of 1 to 32
// bytes.
std::optional<checks::SavedNetwork> savedNetworkFrom(const BusValue& settings);

// From properties of IP4Config and IP6Config, a{sv}: addresses of the link's servers, IPv4 first.
std::vector<std::string> dnsServersFrom(const BusValue& ip4Config, const BusValue& ip6Config);

// Where a DHCPv4 answer says whether there is a sign-in page (option 114), at most 2048 bytes.
std::optional<std::string> captivePortalApiFrom(const BusValue& dhcp4Options);

// Seconds after 1970-01-01 00:00:00 UTC; nothing for 0 and less, and for years after 9999.
std::optional<Date> dateFromUnixTime(std::int64_t seconds);

}  // namespace wifi_profile::machine
