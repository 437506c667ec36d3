#include "devices/linux/LinkWatch.h"

#include <utility>

#include "platform/Text.h"

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::FactSet;

// What belongs to one access point and its channel. The surveys tell of a channel by the frames of
// the link; the scan is of the air.
constexpr FactSet kOfRadio{Fact::link, Fact::surveys};
// What belongs to one link of one network: it goes through any of the network's access points.
constexpr FactSet kOfNetwork{Fact::link,           Fact::surveys,      Fact::addresses,
                             Fact::activeProfile,  Fact::lanPings,     Fact::wanPings,
                             Fact::portalProbe,    Fact::siteReach,    Fact::sitePage,
                             Fact::nameResolution, Fact::routerOutside};

constexpr std::size_t kLongestName = 64;  // bytes in a sentence
constexpr std::chrono::milliseconds kLookUpLimit{200};
// A roam that is told as a loss and a joining takes some milliseconds, with 802.1X up to this.
constexpr std::chrono::milliseconds kRoamLimit{300};

// `happened` such as " was lost".
checks::Unknown unknownSince(const std::optional<checks::Link>& before,
                             const std::string& happened) {
  const std::string name =
      before ? " to \"" + shortened(before->ssid, kLongestName) + "\"" : std::string();
  return {checks::Reason::linkChanged,
          "The link" + name + happened + " while this was asked: run again when it is stable."};
}

}  // namespace

std::optional<LinkChange> changeOfLink(const std::optional<checks::Link>& before,
                                       const LinkEvents& events,
                                       const checks::Known<checks::Link>& now) {
  const bool isSameNetwork = before && now && now->ssid == before->ssid;
  if (events.lost || events.joined) {
    if (isSameNetwork && now->bssid != before->bssid) {
      return LinkChange{kOfRadio, unknownSince(before, " moved to another access point")};
    }
    if (now && !isSameNetwork) {
      return LinkChange{
          kOfNetwork,
          unknownSince(before, " changed to \"" + shortened(now->ssid, kLongestName) + '"')};
    }
    if (events.lost) return LinkChange{kOfNetwork, unknownSince(before, " was lost")};
  }
  if (events.changedChannel) {
    return LinkChange{kOfRadio, unknownSince(before, " changed its channel")};
  }
  return std::nullopt;
}

void LinkWatch::begin(const Patience& patience) {
  const std::lock_guard lock(mutex_);
  if (!std::exchange(begun_, true)) kernel_.watchLink(patience);
}

void LinkWatch::setLink(const checks::Link& link) {
  const std::lock_guard lock(mutex_);
  link_ = link;
}

std::optional<LinkChange> LinkWatch::change(const Patience& patience) {
  const std::lock_guard lock(mutex_);
  if (change_ && change_->gone == kOfNetwork) return change_;
  const LinkEvents events = kernel_.takeLinkEvents(interface_);
  if (!events.any()) return change_;
  auto now = kernel_.link(interface_, patience.atMost(kLookUpLimit));
  if (events.lost && !now) {
    waitFor(-1, 0, patience.atMost(kRoamLimit));
    now = kernel_.link(interface_, patience.atMost(kLookUpLimit));
  }
  const auto change = changeOfLink(link_, events, now);
  if (change && (!change_ || change->gone == kOfNetwork)) change_ = change;
  if (link_ && now) link_->bssid = now->bssid;
  return change_;
}

Errand boundToLink(Errand errand, ChangeOfLink change) {
  const FactSet ofLink = errand.gives.both(kOfNetwork);
  if (ofLink == FactSet{}) return errand;
  errand.run = [run = std::move(errand.run), gives = errand.gives, ofLink,
                change = std::move(change)](const checks::Facts& known,
                                            const Patience& patience) -> Found {
    const auto before = change(patience);
    const bool isInVain = before && before->gone.both(gives) == gives;
    const Found found = isInVain ? Found() : run(known, patience);
    const auto changed = change(patience);
    if (!changed || !changed->gone.meets(ofLink)) return found;
    return [gone = changed->gone.both(ofLink), why = changed->why, found](checks::Facts& facts) {
      if (found) found(facts);
      forget(facts, gone, why);
    };
  };
  return errand;
}

}  // namespace wifi_profile::machine
