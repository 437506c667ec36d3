#include "devices/linux/LinkWatch.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::linux {
namespace {

using checks::FactSet;
using facts::Fact;

// The facts of one access point and its channel. The surveys belong here because a channel's
// figures include the frames of the link; the scan does not, because it is about the air.
constexpr FactSet kOfRadio{Fact::link, Fact::surveys};
// The facts of one link to one network. Facts of reachability do not depend on the access point.
constexpr FactSet kOfNetwork{Fact::link,           Fact::surveys,      Fact::addresses,
                             Fact::activeProfile,  Fact::lanPings,     Fact::wanPings,
                             Fact::portalProbe,    Fact::siteReach,    Fact::sitePage,
                             Fact::nameResolution, Fact::routerOutside};

constexpr std::size_t kLongestName = 64;  // bytes in a message
// Less than kGrace, because a look may begin at a task's deadline.
constexpr std::chrono::milliseconds kLookUpLimit{200};
// A roam that is reported as a loss and a joining includes authentication in between: with SAE or
// on another channel that takes some hundred milliseconds.
constexpr std::chrono::milliseconds kRoamLimit{1000};
constexpr std::chrono::milliseconds kBetweenLinkLooks{100};

// Whether the answer is definite: there is a link, or there is none.
bool isAnswer(const Result<facts::Link>& now) {
  return now || (now.error().reason != Reason::tookTooLong && now.error().reason != Reason::failed);
}

// `happened` is a predicate such as " was lost".
Error unknownSince(const std::optional<facts::Link>& before, const std::string& happened) {
  const std::string name =
      before ? " to \"" + shortened(before->ssid, kLongestName) + "\"" : std::string();
  return {Reason::linkChanged,
          "The link" + name + happened + " while this was asked: run again when it is stable."};
}

}  // namespace

std::optional<LinkChange> changeOfLink(const std::optional<facts::Link>& before,
                                       const netlink::LinkEvents& events,
                                       const Result<facts::Link>& now) {
  const bool isSameNetwork = before && now && now->ssid == before->ssid;
  if (events.lost || events.joined || events.missed) {
    if (isSameNetwork && now->bssid != before->bssid) {
      return LinkChange{kOfRadio, unknownSince(before, " moved to another access point")};
    }
    if (now && !isSameNetwork) {
      return LinkChange{
          kOfNetwork,
          unknownSince(before, " changed to \"" + shortened(now->ssid, kLongestName) + '"')};
    }
    const bool isGone = !now && isAnswer(now);
    if (events.lost || (events.missed && isGone)) {
      return LinkChange{kOfNetwork, unknownSince(before, " was lost")};
    }
  }
  if (events.changedChannel) {
    return LinkChange{kOfRadio, unknownSince(before, " changed its channel")};
  }
  return std::nullopt;
}

LinkSource linkSourceOf(const netlink::WifiInterface& interface) {
  const auto events = std::make_shared<netlink::Nl80211>();
  return {.watch = [events](const Deadline& deadline) { return events->watchLink(deadline); },
          .takeEvents = [events, interface] { return events->takeLinkEvents(interface); },
          .now =
              [interface](const Deadline& deadline) {
                return netlink::Nl80211().link(interface, deadline);
              }};
}

void LinkWatch::begin(const Deadline& deadline) {
  const MutexLock lock(mutex_);
  if (!begun_) begun_ = bool(source_.watch(deadline.atMost(kLookUpLimit)));
}

void LinkWatch::setLink(const facts::Link& link) {
  const MutexLock lock(mutex_);
  link_ = link;
}

LinkWatch::Look LinkWatch::look(const netlink::LinkEvents& events, const Deadline& deadline) const {
  const auto now = [&] { return source_.now(Deadline::in(kLookUpLimit, deadline.stop)); };
  const auto until = Clock::now() + kRoamLimit;
  const Deadline roam = deadline.until(until);
  auto link = now();
  while (events.lost && !link && !roam.isOver()) {
    sleepUntil(roam.atMost(kBetweenLinkLooks));
    link = now();
  }
  const bool mayRoam = events.lost && !link && Clock::now() < until;
  return {link, isAnswer(link) && !mayRoam};
}

std::optional<LinkChange> LinkWatch::change(const Deadline& deadline) {
  MutexLock lock(mutex_);
  if (!begun_ || (change_ && change_->gone == kOfNetwork)) return change_;
  const netlink::LinkEvents taken = source_.takeEvents();
  events_.add(taken);
  if (taken.any()) ++rounds_;
  if (!events_.any()) return change_;
  const netlink::LinkEvents events = events_;
  const int round = rounds_;
  lock.unlock();
  const Look seen = look(events, deadline);
  lock.lock();
  // Another thread has explained these events.
  if (!events_.any()) return change_;
  auto change = changeOfLink(link_, events, seen.link);
  if (change_ && (!change || change->gone != kOfNetwork)) change = change_;
  // Another thread may have taken events meanwhile that are later than the look.
  if (!seen.isFinal || round != rounds_) return change;
  change_ = change;
  events_ = {};
  ++rounds_;
  if (link_ && seen.link) link_->bssid = seen.link->bssid;
  return change_;
}

FactTask boundToLink(FactTask task, ChangeOfLink change) {
  const FactSet ofLink = task.gives.both(kOfNetwork);
  if (ofLink == FactSet{}) return task;
  task.run = [run = std::move(task.run), gives = task.gives, ofLink, change = std::move(change)](
                 const facts::Facts& known, const Deadline& deadline) -> Found {
    const auto before = change(deadline);
    const bool isInVain = before && before->gone.both(gives) == gives;
    Found found = isInVain ? Found() : run(known, deadline);
    const auto changed = change(deadline);
    if (!changed || !changed->gone.meets(ofLink)) return found;
    return [gone = changed->gone.both(ofLink), why = changed->why, found](facts::Facts& facts) {
      if (found) found(facts);
      forget(facts, gone, why);
    };
  };
  return task;
}

}  // namespace wifi_profile::linux
