// How this device is set up.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ieee80211/Security.h"
#include "platform/Date.h"

namespace wifi_profile::checks {

enum class AddressMethod { automatic, manual, linkLocal, shared, disabled };

// One IP version of the profile that is in use.
struct AddressSettings {
  AddressMethod method = AddressMethod::automatic;
  std::vector<std::string> dnsServers = {};  // set in the profile, besides the network's own
  bool ignoresNetworkDns = false;
  bool hasExtraAddresses = false;  // addresses or a gateway of its own besides the network's

  bool operator==(const AddressSettings&) const = default;
};

// The profile that the joined network was joined with.
struct ActiveProfile {
  AddressSettings ipv4 = {};
  AddressSettings ipv6 = {};
  bool hasProxy = false;  // of its own: a script's address
  // Whether the network charges by volume, as the manager was told or guessed; nothing: it does
  // not say.
  std::optional<bool> metered = std::nullopt;
  // Where the network says whether it has a sign-in page (DHCP option 114, RFC 8910); hostile text.
  std::optional<std::string> captivePortalApi = std::nullopt;

  bool operator==(const ActiveProfile&) const = default;
};

// The proxy settings of the session.
struct SessionProxy {
  std::string source = {};  // where it is set, such as "http_proxy in the environment"; empty: none

  bool operator==(const SessionProxy&) const = default;
};

// A remembered network.
struct SavedNetwork {
  std::string ssid = {};
  ieee80211::Security security = ieee80211::Security::unknown;
  bool isHidden = false;
  bool isPasspoint = false;
  bool joinsByItself = true;
  std::optional<bool> metered = std::nullopt;     // as the person set it
  std::optional<Date> lastJoined = std::nullopt;  // nothing: never, or not known
  int accessPoints = 0;  // how many the manager remembers having seen; 0: it does not say

  bool operator==(const SavedNetwork&) const = default;
};

struct Bluetooth {
  int paired = 0;  // devices of all adapters
  int connected = 0;

  bool operator==(const Bluetooth&) const = default;
};

// Whether Wi-Fi and Bluetooth take turns on the antenna, where the driver says.
struct Coexistence {
  bool takesTurns = false;

  bool operator==(const Coexistence&) const = default;
};

// An interface besides that of the link.
struct OtherInterface {
  std::string name;
  bool isTunnel = false;  // its packets go on through another interface, such as the link's

  bool operator==(const OtherInterface&) const = default;
};

// Addresses of the Wi-Fi link.
struct Addresses {
  std::vector<std::string> ipv4 = {};  // dotted; those in use, without prefix length
  std::vector<std::string> ipv6 =
      {};  // RFC 5952; without scope and prefix length; not tentative ones
  std::optional<std::string> ipv4Gateway = std::nullopt;
  std::optional<std::string> ipv6Gateway = std::nullopt;
  // Of the link, in order; it may have none. Unset: not known.
  std::optional<std::vector<std::string>> dnsServers = std::nullopt;
  // Those that the system asks, of this link or not. Unset: not known.
  std::optional<std::vector<std::string>> systemDnsServers = std::nullopt;
  // The interface that packets to these leave by, where none of them is asked through the link.
  // Unset: one of them is, or it is not known.
  std::optional<OtherInterface> systemDnsThrough = std::nullopt;
  // The bond, team or bridge that has them because the Wi-Fi interface is its member. Unset: the
  // interface itself has them.
  std::optional<std::string> carrier = std::nullopt;
  // The interface that the system's packets to the Internet leave by, such as a tunnel, where those
  // of neither protocol leave by the one that has the addresses. Unset: one does, or there is none.
  std::optional<std::string> otherWayOut = std::nullopt;

  bool operator==(const Addresses&) const = default;
};

}  // namespace wifi_profile::checks
