// Beginnings and ends of an interface's scans, from the kernel's events.
#pragma once

#include <optional>

#include "devices/linux/netlink/Interfaces.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::linux::netlink {

// Which ends to report. ended: any, also those of the same radio's scans without an interface.
// beganAndEnded: only those of the interface's own scan, after its beginning was seen.
enum class ScansThat { ended, beganAndEnded };

// Takes the events one at a time, in order. A requested scan begins with an event of its own; an
// end before that belongs to another program's scan that was under way. Any thread.
class ScanEvents {
 public:
  enum class End { results, aborted };

  ScanEvents(const WifiInterface& interface, ScansThat which)
      : interface_(interface), which_(which), counts_(which == ScansThat::ended) {}

  // Returns the end of a scan that counts; empty for any other event.
  std::optional<End> take(const Message& event);

 private:
  const WifiInterface& interface_;
  ScansThat which_;
  bool counts_;  // the next end counts
};

}  // namespace wifi_profile::linux::netlink
