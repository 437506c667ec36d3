// Keeps what is asked of a link apart from what happens to it: another network's figures, or those
// of no network, are not the link's.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "devices/linux/Gathering.h"
#include "devices/linux/netlink/Nl80211.h"

namespace wifi_profile::machine {

// What is not known any more of the link that there was at a run's start.
struct LinkChange {
  checks::FactSet gone;
  checks::Unknown why;
};

// What follows from these events, which `now`, the link after them, explains: of a link that was
// lost, or belongs to another network, everything is gone; after a change to another access point
// of the same network, or with the access point to another channel, only what its radio gave.
// Empty: nothing is gone. `before` is unset where it was not known. Pure.
std::optional<LinkChange> changeOfLink(const std::optional<checks::Link>& before,
                                       const LinkEvents& events,
                                       const checks::Known<checks::Link>& now);

// Follows the link of one interface for one run. Any thread.
class LinkWatch {
 public:
  explicit LinkWatch(WifiInterface interface) : interface_(std::move(interface)) {}

  // Remembers what happens from now on; only the first call does something. Where the kernel does
  // not tell, nothing ever changes.
  void begin(const Patience& patience);
  // The link that the run is about.
  void setLink(const checks::Link& link);
  // Empty: the link is as it was. What is gone stays gone, for the reason that it had first. After
  // a loss it waits a moment for the link that there is instead.
  std::optional<LinkChange> change(const Patience& patience);

 private:
  const WifiInterface interface_;
  std::mutex mutex_;  // guards what follows
  bool begun_ = false;
  Nl80211 kernel_;
  std::optional<checks::Link> link_;  // unset: not known
  std::optional<LinkChange> change_;
};

using ChangeOfLink = std::function<std::optional<LinkChange>(const Patience& patience)>;

// The same errand, whose facts of the link are not known when it changed before they were found. It
// does not begin when nothing could be found out any more.
Errand boundToLink(Errand errand, ChangeOfLink change);

}  // namespace wifi_profile::machine
