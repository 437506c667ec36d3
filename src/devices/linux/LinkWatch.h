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
// of the same network, or with the access point to another channel, only what its radio gave. Where
// events were missed, the link was lost if it is gone now. Empty: nothing is gone. `before` is
// unset where it was not known. Pure.
std::optional<LinkChange> changeOfLink(const std::optional<checks::Link>& before,
                                       const LinkEvents& events,
                                       const checks::Known<checks::Link>& now);

// What the kernel says of one link.
struct LinkSource {
  std::function<NotDone(const Patience&)> watch;  // begins to remember events
  std::function<LinkEvents()> takeEvents;         // those since it was last called
  // The link there is now; called on several threads at a time.
  std::function<checks::Known<checks::Link>(const Patience&)> now;
};

LinkSource linkSourceOf(const WifiInterface& interface);

// Follows one link for one run. Any thread.
class LinkWatch {
 public:
  explicit LinkWatch(LinkSource source) : source_(std::move(source)) {}

  // Remembers what happens from now on; does nothing where it does so already. Where the kernel
  // does not tell, nothing ever changes.
  void begin(const Patience& patience);
  // The link that the run is about.
  void setLink(const checks::Link& link);
  // Empty: the link is as it was. What is gone stays gone, for the reason that it had first. After
  // a loss it waits up to 1 s, not beyond the deadline, for the link that there is instead. Looks
  // at the link also after the deadline, for 0.2 s at most. Without an answer about the link, the
  // next call looks again.
  std::optional<LinkChange> change(const Patience& patience);

 private:
  // The link after these events, and whether that answer is the last one.
  struct Look {
    checks::Known<checks::Link> link;
    bool isFinal;
  };
  Look look(const LinkEvents& events, const Patience& patience) const;

  const LinkSource source_;  // `watch` and `takeEvents` with the mutex
  std::mutex mutex_;         // guards what follows; never held while the link is looked at
  bool begun_ = false;
  LinkEvents events_;                 // those that no final look has explained
  int rounds_ = 0;                    // counts the changes of `events_`
  std::optional<checks::Link> link_;  // unset: not known
  std::optional<LinkChange> change_;
};

using ChangeOfLink = std::function<std::optional<LinkChange>(const Patience& patience)>;

// The same errand, whose facts of the link are not known when it changed before they were found. It
// does not begin when nothing could be found out any more.
Errand boundToLink(Errand errand, ChangeOfLink change);

}  // namespace wifi_profile::machine
