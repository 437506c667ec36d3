// The entries of the kernel's scan list (NL80211_ATTR_BSS) as access points. Pure functions; any
// thread. All bytes of the elements are a stranger's.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checks/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::machine {

// The newest scan and how old it is.
struct ScanList {
  checks::Scan scan;
  // Since an access point was last heard that is heard in scans only: the joined one, and those
  // that share its beacons, are heard all the time. Right after a scan it is as long as the radio
  // then spent on other channels. Nothing: there is no such access point, or the driver does not
  // say.
  std::optional<std::chrono::milliseconds> age;
  std::optional<std::string> joinedBssid = std::nullopt;  // nothing: not joined

  bool operator==(const ScanList&) const = default;
};

// The kernel forgets an access point this long after it last heard it.
inline constexpr std::chrono::milliseconds kKernelKeeps{30'000};
// A joined radio takes 10 to 15 s to visit all channels, because it goes back to its own between
// them; one that is not joined takes 3 to 5 s.
inline constexpr std::chrono::milliseconds kLongestScan{15'000};
inline constexpr std::chrono::milliseconds kLongestScanAlone{5'000};

// For how long after a scan the kernel's list still has all that the scan heard: until what was
// heard first is forgotten.
std::chrono::milliseconds wholeFor(const ScanList& list);

// One entry of the list.
struct ScanEntry {
  checks::AccessPoint accessPoint;
  bool joined = false;                           // the radio is
  std::optional<int> frequency;                  // MHz, where it was heard
  std::optional<std::chrono::milliseconds> age;  // since it was last heard
  // It shares another network's beacons, as it says itself.
  bool nontransmitted = false;
  // The networks that its beacons announce besides it, the first kMostAnnounced of them.
  static constexpr std::size_t kMostAnnounced = 32;
  std::vector<checks::AccessPoint> others;

  bool operator==(const ScanEntry&) const = default;
};

// From the attributes inside NL80211_ATTR_BSS. Probe responses and beacons are put together: the
// name is the probe response's, whether it hides it the beacon's, and what one lacks is taken from
// the other one. `sinceBoot` is the time now by CLOCK_BOOTTIME. Nothing without a BSSID.
std::optional<ScanEntry> scanEntryOf(const Attributes& bss, std::chrono::nanoseconds sinceBoot);

// Removes the entries that were last heard longer ago than `age`. What is heard without scans stays
// (the joined access point, and what shares its beacons), and so does an entry of unknown age.
void removeOlderThan(std::chrono::milliseconds age, std::vector<ScanEntry>& entries);

// Each BSSID once: an entry with a name is kept before one without, then the one that was heard
// last. A network that only another one's beacons announce is added; one that has an entry and says
// that it is such a network gets its sender's address. At most kMostAccessPoints.
inline constexpr std::size_t kMostAccessPoints = 4096;
ScanList scanListOf(std::vector<ScanEntry> entries);

}  // namespace wifi_profile::machine
