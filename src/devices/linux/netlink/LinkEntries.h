// The link, from nl80211's answers about interface, station and scan list. Pure functions; any
// thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"
#include "devices/linux/netlink/Interfaces.h"
#include "devices/linux/netlink/ScanEntries.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::linux::netlink {

// The access point, from the kernel's station entry.
struct StationEntry {
  std::string address;  // as checks::Link::bssid; of all links where there are several
  std::optional<int> signal =
      std::nullopt;  // dBm: mean of the beacons, else mean of all frames, else of the last frame
  std::optional<int> beaconInterval = std::nullopt;  // TU
  std::optional<int> dtimPeriod = std::nullopt;      // beacons

  bool operator==(const StationEntry&) const = default;
};

// Parses an answer to NL80211_CMD_GET_STATION. Empty if the entry is not the access point's: it has
// no address, or is a direct link to another member (TDLS).
std::optional<StationEntry> stationEntryOf(const Attributes& attributes);

// Combines the three answers. Empty if the interface is not joined: there is no station entry or no
// name, or the interface is not a station (an access point's station entries are its clients).
// `joined`, the scan list's entry of the joined access point, may be missing. It supplies what the
// others lack, and the BSSID, which replaces the station entry's address.
std::optional<facts::Link> linkOf(const WifiInterface& interface,
                                  const std::optional<StationEntry>& station,
                                  const std::optional<ScanEntry>& joined);

// What events report about the interface's link.
struct LinkEvents {
  // The link ended: by request, by a switch, because the access point disappeared, because another
  // network was joined, or because the interface was removed. Most drivers report a roam as a loss
  // followed by a joining.
  bool lost = false;
  bool joined = false;          // by request, or by a roam of the driver
  bool changedChannel = false;  // together with its access point
  bool missed = false;          // the kernel dropped events, perhaps some of the above

  bool any() const { return lost || joined || changedChannel || missed; }
  void add(const LinkEvents& more);
  bool operator==(const LinkEvents&) const = default;
};

// Adds what one event reports. Ignores failed joinings and events of other interfaces.
void addToLinkEvents(const Message& event, const WifiInterface& interface, LinkEvents& events);

}  // namespace wifi_profile::linux::netlink
