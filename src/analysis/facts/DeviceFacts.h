// Facts about the configuration of this device.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/ieee80211/Security.h"
#include "diagnostic/platform/Date.h"

namespace wifi_profile::facts {

enum class AddressMethod { automatic, manual, linkLocal, shared, disabled };

// The settings of one IP version in the active profile.
struct AddressSettings {
  AddressMethod method = AddressMethod::automatic;
  std::vector<std::string> dnsServers = {};  // set in the profile, in addition to the network's
  bool ignoresNetworkDns = false;
  bool hasExtraAddresses = false;  // addresses or a gateway in addition to the network's

  bool operator==(const AddressSettings&) const = default;
};

// The profile of the joined network.
struct ActiveProfile {
  AddressSettings ipv4 = {};
  AddressSettings ipv6 = {};
  bool hasProxy = false;  // set in the profile, by a script or its address
  // True if the network charges by volume, as the manager was told or guessed. Empty if it does not
  // report that.
  std::optional<bool> metered = std::nullopt;
  // The address at which the network says whether it has a sign-in page (DHCP option 114, RFC
  // 8910). Untrusted text.
  std::optional<std::string> captivePortalApi = std::nullopt;

  bool operator==(const ActiveProfile&) const = default;
};

// The proxy settings of the session.
struct SessionProxy {
  std::string source = {};  // where it is set, such as "http_proxy in the environment"; empty: none

  bool operator==(const SessionProxy&) const = default;
};

// A saved network.
struct SavedNetwork {
  std::string ssid = {};
  ieee80211::Security security = ieee80211::Security::unknown;
  bool isHidden = false;
  bool isPasspoint = false;
  bool joinsByItself = true;
  std::optional<bool> metered = std::nullopt;     // as the user set it
  std::optional<Date> lastJoined = std::nullopt;  // empty: never, or unknown
  int accessPoints = 0;  // number that the manager remembers having seen; 0: unknown

  bool operator==(const SavedNetwork&) const = default;
};

struct Bluetooth {
  int paired = 0;  // devices of all adapters
  int connected = 0;

  bool operator==(const Bluetooth&) const = default;
};

// Whether Wi-Fi and Bluetooth take turns on the antenna, as the driver reports it.
struct Coexistence {
  bool takesTurns = false;

  bool operator==(const Coexistence&) const = default;
};

// An interface other than that of the link.
struct OtherInterface {
  std::string name;
  bool isTunnel = false;  // sends its packets on through another interface, such as the link's

  bool operator==(const OtherInterface&) const = default;
};

// The addresses of the Wi-Fi link.
struct Addresses {
  std::vector<std::string> ipv4 = {};  // dotted, without prefix length; only those in use
  std::vector<std::string> ipv6 =
      {};  // RFC 5952, without scope and prefix length; no tentative ones
  std::optional<std::string> ipv4Gateway = std::nullopt;
  std::optional<std::string> ipv6Gateway = std::nullopt;
  // The name servers of the link, in order; the list may be empty. Unset: unknown.
  std::optional<std::vector<std::string>> dnsServers = std::nullopt;
  // The name servers that the system uses, of this link or not. Unset: unknown.
  std::optional<std::vector<std::string>> systemDnsServers = std::nullopt;
  // The interface by which packets to systemDnsServers leave if none of these servers is reached
  // through the link. Unset if one is, or if it is unknown.
  std::optional<OtherInterface> systemDnsThrough = std::nullopt;
  // The bond, team or bridge that has the addresses because the Wi-Fi interface is its member.
  // Unset if the Wi-Fi interface itself has them.
  std::optional<std::string> carrier = std::nullopt;
  // The interface, such as a tunnel, by which the system's packets to the Internet leave, if
  // neither IPv4 nor IPv6 leaves by the interface that has the addresses. Unset if one of them
  // does, or if there is no such interface.
  std::optional<std::string> otherWayOut = std::nullopt;

  bool operator==(const Addresses&) const = default;
};

}  // namespace wifi_profile::facts
