#include "devices/linux/WifiDevice.h"

#include <algorithm>

#include "devices/linux/Rfkill.h"
#include "devices/linux/SinceBoot.h"
#include "devices/linux/bus/AccessPointList.h"
#include "devices/linux/bus/ConnectionManager.h"

namespace wifi_profile::linux {
namespace {

using std::chrono::milliseconds;

// The kernel lists its interfaces at once.
constexpr milliseconds kInterfacesLimit{3'000};
// For asking a manager for its last scan or its list; a new scan gets most of the time.
constexpr milliseconds kManagerLimit{2'000};
// How long to wait before repeating a request that a manager refused as too soon.
constexpr milliseconds kBeforeAskingAgain{1'000};
// An access point heard by a scan has a time at or after the scan's begin. A kernel that counts
// these times in ticks of 10 ms or less may round the time down, and reports it in whole
// milliseconds.
constexpr milliseconds kClockMargin{20};
// How long to wait for an interface to come up, and how long between two attempts.
constexpr milliseconds kUntilReady{5'000};
constexpr milliseconds kBetweenTries{200};

const Error kNotReady{Reason::radioOff,
                      "Wi-Fi is off or not ready yet, so NetworkManager could not scan. Switch it "
                      "on, and try again."};

Error noInterface(const std::string& name) {
  return {Reason::noHardware, "There is no Wi-Fi interface \"" + name +
                                  "\" on this machine: leave the name out, or use one that "
                                  "\"iw dev\" or \"nmcli device\" lists."};
}

}  // namespace

Result<std::shared_ptr<const WifiDevice>> WifiDevice::open(const std::string& interface) {
  netlink::Nl80211 kernel;
  const auto all = kernel.interfaces(Deadline::in(kInterfacesLimit));
  if (!all) return all.error();
  const auto found = std::find_if(all->begin(), all->end(), [&](const netlink::WifiInterface& one) {
    return interface.empty() ? !one.name.empty() : one.name == interface;
  });
  if (found == all->end())
    return interface.empty() ? netlink::noWifiDevice() : noInterface(interface);
  return std::shared_ptr<const WifiDevice>(new WifiDevice(*found));
}

Result<facts::Link> WifiDevice::link(const Deadline& deadline) const {
  return netlink::Nl80211().link(interface_, deadline);
}

Result<facts::Radio> WifiDevice::abilities(const Deadline& deadline) const {
  return netlink::Nl80211().abilities(interface_, deadline);
}

Result<netlink::ScanList> WifiDevice::scan(std::chrono::seconds oldest,
                                           const Deadline& deadline) const {
  netlink::Nl80211 kernel;
  if (oldest.count() > 0) {
    auto list = kernel.scan(interface_, deadline);
    if (list && isYoung(*list, oldest, deadline)) return list;
  }
  const Began began = makeScan(kernel, deadline.atMost(deadline.left() - kManagerLimit));
  if (!began) return withoutNewScan(kernel, oldest, began.error(), deadline);
  return kernel.scan(interface_, deadline, *began - kClockMargin - oldest);
}

// If only the joined access point is in range, the list has no age; the manager may know it.
bool WifiDevice::isYoung(const netlink::ScanList& list, std::chrono::seconds oldest,
                         const Deadline& deadline) const {
  const auto longest = std::min<std::chrono::nanoseconds>(oldest, netlink::wholeFor(list));
  if (list.age) return *list.age <= longest;
  const auto since = sinceManagersScan(deadline.atMost(kManagerLimit));
  return since && *since <= longest;
}

std::optional<std::chrono::nanoseconds> WifiDevice::sinceManagersScan(
    const Deadline& deadline) const {
  const auto last = bus::ConnectionManager(*systemBus_).lastScan(interface_.name, deadline);
  if (!last || !*last) return std::nullopt;
  return sinceBoot() - **last;
}

Result<netlink::ScanList> WifiDevice::withoutNewScan(netlink::Nl80211& kernel,
                                                     std::chrono::seconds oldest, const Error& why,
                                                     const Deadline& deadline) const {
  if (why.reason == Reason::radioOff) return why;
  auto list = kernel.scan(interface_, deadline);
  if (!list) return why;
  const Deadline little = deadline.atMost(kManagerLimit);
  const auto listed = bus::ConnectionManager(*systemBus_).accessPoints(interface_.name, little);
  const auto since = sinceManagersScan(little);
  if (!listed || !since || *since > oldest) list->scan.incomplete = why;
  if (listed) {
    bus::addSecondHand(*listed,
                       list->scan.incomplete ? milliseconds::max() : oldest + netlink::kLongestScan,
                       list->scan);
  }
  return list;
}

// An interface needs a moment to come up after its radio was switched on.
WifiDevice::Began WifiDevice::makeScan(netlink::Nl80211& kernel, const Deadline& deadline) const {
  const Deadline untilReady = deadline.atMost(kUntilReady);
  while (true) {
    Began began = tryScan(kernel, deadline);
    if (began || began.error().reason != Reason::radioOff) return began;
    if (untilReady.isOver() || isSwitchedOff()) return began;
    sleepUntil(untilReady.atMost(kBetweenTries));
  }
}

// The kernel lets only privileged users scan; the connection manager lets users with a local
// session.
WifiDevice::Began WifiDevice::tryScan(netlink::Nl80211& kernel, const Deadline& deadline) const {
  Began byKernel = kernel.triggerScan(interface_, deadline);
  if (byKernel || byKernel.error().reason != Reason::notPermitted) return byKernel;
  return scanByManager(kernel, deadline);
}

WifiDevice::Began WifiDevice::scanByManager(netlink::Nl80211& kernel,
                                            const Deadline& deadline) const {
  bus::ConnectionManager manager(*systemBus_);
  while (true) {
    // Discards the ends of earlier scans.
    if (const Status watched = kernel.watchScans(deadline); !watched) return watched.error();
    const auto asked = sinceBoot();
    const auto started = manager.requestScan(interface_.name, deadline);
    if (!started) return started.error();
    if (*started == bus::ScanStart::notReady) return kNotReady;
    if (*started == bus::ScanStart::started) {
      const Status ended =
          kernel.awaitScanResults(interface_, netlink::ScansThat::beganAndEnded, deadline);
      if (!ended) return ended.error();
      return asked;
    }
    // Too soon: a scan is under way, or has just ended.
    const Deadline little = deadline.atMost(kBeforeAskingAgain);
    const Status earlier = kernel.awaitScanResults(interface_, netlink::ScansThat::ended, little);
    if (earlier) return asked - netlink::kLongestScan;  // it began before the request
    const bool mayPass = earlier.error().reason == Reason::tookTooLong ||
                         earlier.error().reason == Reason::failed;  // for instance an aborted scan
    if (deadline.isOver() || !mayPass) return earlier.error();
    sleepUntil(little);  // the failure may have come at once
  }
}

bool WifiDevice::isSwitchedOff() const {
  Rfkill switches(interface_.name);
  static_cast<void>(switches.open());  // without a switch, the radio counts as on
  return switches.poweredOn() == false;
}

}  // namespace wifi_profile::linux
