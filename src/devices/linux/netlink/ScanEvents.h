// Beginnings and ends of an interface's scans, as the kernel's events tell them.
#pragma once

#include <optional>

#include "devices/linux/netlink/Interfaces.h"
#include "devices/linux/netlink/Socket.h"

namespace wifi_profile::machine {

// Which ends to report: any, also of the same radio's scan for no interface, or only that of the
// interface's scan whose beginning was seen.
enum class ScansThat { ended, beganAndEnded };

// Takes the events one by one, in their order. A scan that was asked for begins with an event of
// its own; an end before it is that of another program's scan, which was under way. Any thread.
class ScanEvents {
 public:
  enum class End { results, aborted };

  ScanEvents(const WifiInterface& interface, ScansThat which)
      : interface_(interface), which_(which), counts_(which == ScansThat::ended) {}

  // The end of a scan that counts; empty for any other event.
  std::optional<End> take(const Message& event);

 private:
  const WifiInterface& interface_;
  ScansThat which_;
  bool counts_;  // the next end does
};

}  // namespace wifi_profile::machine
