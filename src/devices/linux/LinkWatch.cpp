#include "devices/linux/LinkWatch.h"

#include <utility>

#include "platform/Text.h"

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::FactSet;

// What is true of one link only. The scan and the survey are of the air.
constexpr FactSet kOfLink{Fact::link,         Fact::addresses, Fact::activeProfile,
                          Fact::lanPings,     Fact::wanPings,  Fact::portalProbe,
                          Fact::siteReach,    Fact::sitePage,  Fact::nameResolution,
                          Fact::routerOutside};

constexpr std::size_t kLongestName = 64;  // bytes in a sentence
constexpr std::chrono::milliseconds kLookUpLimit{200};

}  // namespace

void LinkWatch::begin(const Patience& patience) {
  const std::lock_guard lock(mutex_);
  if (!std::exchange(begun_, true)) kernel_.watchLink(patience);
}

void LinkWatch::setNetwork(const std::string& name) {
  const std::lock_guard lock(mutex_);
  network_ = name;
}

std::optional<checks::Unknown> LinkWatch::change(const Patience& patience) {
  const std::lock_guard lock(mutex_);
  if (!change_ && kernel_.tookLoss(interface_)) {
    change_ = linkChanged(network_, kernel_.link(interface_, patience.atMost(kLookUpLimit)));
  }
  return change_;
}

checks::Unknown linkChanged(const std::string& name, const checks::Known<checks::Link>& now) {
  const auto named = [](const std::string& network) {
    return " to \"" + shortened(network, kLongestName) + "\"";
  };
  std::string sentence = "The link" + (name.empty() ? "" : named(name));
  sentence += now && now->ssid != name ? " changed" + named(now->ssid) : " was lost";
  return {checks::Reason::linkChanged,
          sentence + " while this was asked: run again when it is stable."};
}

Errand boundToLink(Errand errand, LinkChange change) {
  if (!errand.gives.meets(kOfLink)) return errand;
  FactSet ofLink{};
  bool hasOthers = false;
  for (int i = 0; i < checks::kFactCount; ++i) {
    if (!errand.gives.holds(Fact(i))) continue;
    if (kOfLink.holds(Fact(i))) {
      ofLink = ofLink.with({Fact(i)});
    } else {
      hasOthers = true;
    }
  }
  errand.run = [run = std::move(errand.run), ofLink, hasOthers, change = std::move(change)](
                   const checks::Facts& known, const Patience& patience) -> Found {
    auto why = hasOthers ? std::nullopt : change(patience);
    Found found = why ? Found() : run(known, patience);
    if (!why) why = change(patience);
    if (!why) return found;
    return [ofLink, found, why](checks::Facts& facts) {
      if (found) found(facts);
      forget(facts, ofLink, *why);
    };
  };
  return errand;
}

}  // namespace wifi_profile::machine
