// Parses the kernel's scan list (NL80211_ATTR_BSS) into access points. Pure functions; any thread.
// All bytes of the elements are untrusted.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::linux::netlink {

// The kernel's scan list and its age.
struct ScanList {
  facts::Scan scan;
  // The age of the scan: time since its newest entry, ignoring the joined access point and those
  // that share its beacons, whose beacons arrive all the time. Right after a scan the age is the
  // time that the radio then spent on other channels. Empty: there is no other access point, or the
  // driver reports no times.
  std::optional<std::chrono::milliseconds> age;
  std::optional<std::string> joinedBssid = std::nullopt;  // empty: not joined

  bool operator==(const ScanList&) const = default;
};

// The kernel removes an access point this long after it last heard it.
inline constexpr std::chrono::milliseconds kKernelKeeps{30'000};
// A scan of all channels takes a joined radio 10 to 15 s, because it returns to its own channel
// between the others, and any other radio 3 to 5 s.
inline constexpr std::chrono::milliseconds kLongestScan{15'000};
inline constexpr std::chrono::milliseconds kLongestScanAlone{5'000};

// Returns how long after a scan the kernel's list is complete: until the kernel removes the first
// access point that the scan heard.
std::chrono::milliseconds wholeFor(const ScanList& list);

// One entry of the scan list.
struct ScanEntry {
  facts::AccessPoint accessPoint;
  bool joined = false;                           // the radio is joined to this access point
  std::optional<int> frequency;                  // MHz, of the channel that it was heard on
  std::optional<std::chrono::milliseconds> age;  // time since it was last heard
  // It shares another network's beacons, according to its own elements.
  bool nontransmitted = false;
  // The other networks that its beacons announce, at most kMostAnnounced.
  static constexpr std::size_t kMostAnnounced = 32;
  std::vector<facts::AccessPoint> others;

  bool operator==(const ScanEntry&) const = default;
};

// Parses the attributes inside NL80211_ATTR_BSS. Combines probe response and beacon: the name comes
// from the probe response, the beacon decides whether the name is hidden, and each supplies what
// the other lacks. `sinceBoot` is the current time of CLOCK_BOOTTIME. Empty without a BSSID.
std::optional<ScanEntry> scanEntryOf(const Attributes& bss, std::chrono::nanoseconds sinceBoot);

// Removes the entries last heard longer ago than `age`. Keeps entries that are heard without scans
// (the joined access point and those that share its beacons) and entries of unknown age.
void removeOlderThan(std::chrono::milliseconds age, std::vector<ScanEntry>& entries);

// Builds the list, with each BSSID once. Of two entries of one BSSID, the one with a name is kept,
// otherwise the joined one, otherwise the one heard last. Adds networks that only another network's
// beacons announce. An entry that says that it is such a network gets the sender's address. At most
// kMostAccessPoints.
inline constexpr std::size_t kMostAccessPoints = 4096;
ScanList scanListOf(std::vector<ScanEntry> entries);

}  // namespace wifi_profile::linux::netlink
