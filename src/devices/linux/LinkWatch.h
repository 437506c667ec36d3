// Detects changes of the link during a run. After a change, figures of another network, or measured
// without a network, must not count as the link's.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "devices/linux/FactCollection.h"
#include "devices/linux/netlink/Nl80211.h"
#include "diagnostic/platform/Mutex.h"

namespace wifi_profile::linux {

// The facts that a change of the link has made invalid, and why.
struct LinkChange {
  checks::FactSet gone;
  Error why;
};

// Returns the facts that these events make invalid; empty: none. `before` is the link at the run's
// start, unset where it was not known; `now` is the link after the events. If the link was lost, or
// now belongs to another network, all facts of the link are invalid. If it moved to another access
// point of the same network, or its access point changed the channel, only the facts of its radio
// are invalid. If events were missed, the link counts as lost when there is no link now. Pure.
std::optional<LinkChange> changeOfLink(const std::optional<facts::Link>& before,
                                       const netlink::LinkEvents& events,
                                       const Result<facts::Link>& now);

// The kernel's reports about one link.
struct LinkSource {
  std::function<Status(const Deadline&)> watch;     // starts to record events
  std::function<netlink::LinkEvents()> takeEvents;  // the events since the previous call
  // Returns the current link. Several threads call it at the same time.
  std::function<Result<facts::Link>(const Deadline&)> now;
};

LinkSource linkSourceOf(const netlink::WifiInterface& interface);

// Follows one link for one run. Any thread.
class LinkWatch {
 public:
  explicit LinkWatch(LinkSource source) : source_(std::move(source)) {}

  // Records events from now on. Has no effect if recording has begun already. If the kernel reports
  // no events, `change` never finds a change.
  void begin(const Deadline& deadline);
  // Sets the link that the run is about.
  void setLink(const facts::Link& link);
  // Returns the change of the link since `begin`; empty: no change. Invalid facts stay invalid; the
  // reason changes only if a later change invalidates more facts. After a loss, waits up to 1 s,
  // within the deadline, for a new link. Reads the link also after the deadline, for at most 0.2 s.
  // If the link cannot be read, the next call reads it again.
  std::optional<LinkChange> change(const Deadline& deadline);

 private:
  // The link after some events, and whether no later reading can change the conclusion.
  struct Look {
    Result<facts::Link> link;
    bool isFinal;
  };
  Look look(const netlink::LinkEvents& events, const Deadline& deadline) const;

  const LinkSource source_;  // `watch` and `takeEvents` are called with the mutex held
  Mutex mutex_;              // never held while the link is read
  bool begun_ GUARDED_BY(mutex_) = false;
  netlink::LinkEvents events_ GUARDED_BY(mutex_);  // events that no final look has explained yet
  int rounds_ GUARDED_BY(mutex_) = 0;              // incremented when `events_` changes
  std::optional<facts::Link> link_ GUARDED_BY(mutex_);  // unset: not known
  std::optional<LinkChange> change_ GUARDED_BY(mutex_);
};

using ChangeOfLink = std::function<std::optional<LinkChange>(const Deadline& deadline)>;

// Returns the task with a check of the link: the facts of the link become unknown if the link
// changed before they were found. The task does not run if all its facts are invalid already.
FactTask boundToLink(FactTask task, ChangeOfLink change);

}  // namespace wifi_profile::linux
