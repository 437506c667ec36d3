// The link as nl80211 tells it in three answers. Pure functions; any thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"
#include "devices/linux/netlink/Interfaces.h"
#include "devices/linux/netlink/ScanEntries.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

// The access point as a station entry has it.
struct StationEntry {
  std::string address;  // as checks::Link::bssid; where a network has several links, of all of them
  std::optional<int> signal =
      std::nullopt;  // dBm: mean of the beacons, else of all frames, else the last
  std::optional<int> beaconInterval = std::nullopt;  // TU
  std::optional<int> dtimPeriod = std::nullopt;      // beacons

  bool operator==(const StationEntry&) const = default;
};

// From an answer to NL80211_CMD_GET_STATION. Nothing for one that is not the access point: without
// an address, or a direct link to another member (TDLS).
std::optional<StationEntry> stationEntryOf(const Attributes& attributes);

// Nothing when they are not joined: without a station entry, without a name, or where the interface
// is no station, such as an access point that others have joined. The scan list's
// entry of the joined access point may be missing; it fills in what the others lack, and tells the
// BSSID where the station entry's address is none.
std::optional<checks::Link> linkOf(const WifiInterface& interface,
                                   const std::optional<StationEntry>& station,
                                   const std::optional<ScanEntry>& joined);

// What events say of the interface's link.
struct LinkEvents {
  // Set by every end of a link: an order, a switch, an access point that is gone, another network,
  // the interface's own end. Most drivers tell a roam as a loss and a joining.
  bool lost = false;
  bool joined = false;          // by an order, or by a roam that the driver made
  bool changedChannel = false;  // with the access point, which stays the same
  bool missed = false;          // the kernel dropped events, which may have been any of these

  bool any() const { return lost || joined || changedChannel || missed; }
  void add(const LinkEvents& more);
  bool operator==(const LinkEvents&) const = default;
};

// Adds what one event says. A joining that failed, and what other interfaces do, says nothing.
void addToLinkEvents(const Message& event, const WifiInterface& interface, LinkEvents& events);

}  // namespace wifi_profile::machine
