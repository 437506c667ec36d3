// The operations of Nl80211 that make scans and wait for them.

#include <cerrno>
#include <linux/netlink.h>
#include <linux/nl80211.h>

#include "devices/linux/SinceBoot.h"
#include "devices/linux/netlink/Nl80211.h"

namespace wifi_profile::linux::netlink {

namespace {

constexpr std::string_view kSubject = "a new scan's results";

Error abortedScan() {
  return {Reason::failed,
          "The scan was given up half-way: by the driver, or because another program aborted it. "
          "Try again."};
}

}  // namespace

Status Nl80211::watchScans(const Deadline& deadline) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  if (scanGroup_ == 0) return unknownFor(EOPNOTSUPP, kSubject);
  if (const int error = events_.listen(scanGroup_); error != 0) return unknownFor(error, kSubject);
  return {};
}

int Nl80211::awaitScanEnd(const WifiInterface& interface, ScansThat which, const Deadline& deadline,
                          ScanEvents::End& end) {
  ScanEvents events(interface, which);
  while (true) {
    Message event;
    const int error = events_.nextEvent(deadline, event);
    if (error != 0) return error;
    if (event.type != family_) continue;
    if (const auto read = events.take(event)) {
      end = *read;
      return 0;
    }
  }
}

Status Nl80211::awaitScanResults(const WifiInterface& interface, ScansThat which,
                                 const Deadline& deadline) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  ScanEvents::End end{};
  const int error = awaitScanEnd(interface, which, deadline, end);
  if (error != 0) return unknownFor(error, kSubject);
  if (end == ScanEvents::End::aborted) return abortedScan();
  return {};
}

int Nl80211::startScan(const WifiInterface& interface, const Deadline& deadline,
                       std::uint32_t flags) {
  Request request(family_, NL80211_CMD_TRIGGER_SCAN, Request::Kind::one);
  request.put(NL80211_ATTR_IFINDEX, static_cast<std::uint32_t>(interface.index));
  // One empty SSID: probes for any network.
  request.putEmptyList(NL80211_ATTR_SCAN_SSIDS);
  if (flags != 0) request.put(NL80211_ATTR_SCAN_FLAGS, flags);
  std::vector<Message> answers;
  return requests_.ask(request, deadline, answers);
}

Error Nl80211::whyNoScan(const WifiInterface& interface, const Deadline& deadline) {
  const auto current = now(interface, deadline);
  if (!current || current->role == facts::RadioInterface::Role::station) {
    return unknownFor(EOPNOTSUPP, kSubject);
  }
  return {Reason::notSupported,
          "The interface is no station but an access point, a monitor or the like, which does not "
          "scan. Use another interface, or make it a station (iw dev " +
              current->name + " set type managed)."};
}

Result<std::chrono::nanoseconds> Nl80211::triggerScan(const WifiInterface& interface,
                                                      const Deadline& deadline) {
  // On 6 GHz, scans only channels that access points of other bands announce, and the preferred
  // scanning channels. The others, most of the band, would take seconds.
  std::uint32_t flags = NL80211_SCAN_FLAG_COLOCATED_6GHZ;
  while (true) {
    // Discards the ends of earlier scans.
    if (const Status ready = watchScans(deadline); !ready) return ready.error();
    const auto began = sinceBoot();
    const int error = startScan(interface, deadline, flags);
    if (flags != 0 && (error == EOPNOTSUPP || error == EINVAL)) {
      flags = 0;
      continue;
    }
    // Another scan may be under way, perhaps of a single channel: this one begins after it. The
    // other scan may also have ended before the events were recorded.
    constexpr std::chrono::milliseconds kUntilNextTry{1000};
    const bool isOurs = error == 0;
    if (error == EOPNOTSUPP) return whyNoScan(interface, deadline);
    if (!isOurs && error != EBUSY) return unknownFor(error, kSubject);
    // Another scan may have ended after `watchScans` and before this one began.
    ScanEvents::End end{};
    const int awaited =
        isOurs ? awaitScanEnd(interface, ScansThat::beganAndEnded, deadline, end)
               : awaitScanEnd(interface, ScansThat::ended, deadline.atMost(kUntilNextTry), end);
    // Events were lost, perhaps the end of this scan: a further scan has an end of its own.
    if (awaited == ENOBUFS) continue;
    if (awaited != 0 && (isOurs || awaited != ETIMEDOUT || deadline.isOver())) {
      return unknownFor(awaited, kSubject);
    }
    if (!isOurs) continue;
    if (end == ScanEvents::End::aborted) return abortedScan();
    return began;
  }
}

}  // namespace wifi_profile::linux::netlink
