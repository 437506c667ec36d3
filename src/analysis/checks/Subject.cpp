#include "analysis/checks/Subject.h"

#include <algorithm>
#include <limits>
#include <string>

#include "analysis/checks/Answers.h"

namespace wifi_profile::checks {
namespace {

constexpr std::size_t kLongestName = 64;  // bytes in a sentence; an SSID has at most 32

bool asksForJoined(const Question& question) {
  if (!question.networkName) return true;
  const Result<facts::Link>& link = question.facts.link;
  return link && link->ssid == question.networkName->string();
}

// Returns why it is unknown whether the named network is the joined one. Empty if it is known.
std::optional<Error> whyNotKnownWhetherJoined(const Question& question) {
  const Result<facts::Link>& link = question.facts.link;
  if (!question.networkName || link || link.error().reason == Reason::notJoined)
    return std::nullopt;
  return link.error();
}

Subject joined(const facts::Facts& facts) {
  Subject subject{.link = &*facts.link, .name = facts.link->ssid};
  if (!facts.scan) {
    subject.notHeard = facts.scan.error();
    return subject;
  }
  const auto& accessPoints = facts.scan->accessPoints;
  const auto found = std::ranges::find(accessPoints, facts.link->bssid, &facts::AccessPoint::bssid);
  if (found != accessPoints.end()) {
    subject.heard = &*found;
  } else if (facts.scan->incomplete) {
    subject.notHeard = *facts.scan->incomplete;
  } else {
    subject.notHeard = {Reason::notInRange,
                        "The joined access point is not in the last scan: scan again."};
  }
  return subject;
}

Result<Subject> inRange(const facts::Facts& facts, std::string_view name) {
  if (auto why = whyNotWhole(facts.scan)) return *std::move(why);
  const facts::AccessPoint* strongest = nullptr;
  for (const facts::AccessPoint& accessPoint : facts.scan->accessPoints) {
    if (accessPoint.ssid != name) continue;
    if (!strongest || isStronger(accessPoint, *strongest)) strongest = &accessPoint;
  }
  if (!strongest) {
    return Error{Reason::notInRange, "The network \"" + shortened(name, kLongestName) +
                                         "\" was not heard: check how its name is written, move "
                                         "closer, and run again."};
  }
  return Subject{.heard = strongest, .name = name};
}

}  // namespace

Result<Subject> subjectOf(const Question& question) {
  const facts::Facts& facts = question.facts;
  if (auto why = whyNotKnownWhetherJoined(question)) return *std::move(why);
  if (!asksForJoined(question)) return inRange(facts, question.networkName->string());
  if (!facts.link) return facts.link.error();
  return joined(facts);
}

bool isStronger(const facts::AccessPoint& one, const facts::AccessPoint& other) {
  constexpr int kUnknown = std::numeric_limits<int>::min();
  const int strength = one.signal.value_or(kUnknown);
  const int otherStrength = other.signal.value_or(kUnknown);
  return strength != otherStrength ? strength > otherStrength : one.bssid < other.bssid;
}

std::optional<ieee80211::OperatingChannel> channelOf(const Subject& subject) {
  const auto heard = subject.heard ? subject.heard->channel : std::nullopt;
  if (!subject.link || !subject.link->frequency) return heard;
  const auto band = ieee80211::bandOf(*subject.link->frequency);
  const auto channel = ieee80211::channelOf(*subject.link->frequency);
  if (!band || !channel || !ieee80211::isTwentyMHzChannel(*band, *channel)) return heard;
  if (heard && heard->band == *band && heard->primary == *channel) return heard;
  return ieee80211::OperatingChannel{.band = *band, .primary = *channel, .extent = std::nullopt};
}

Result<int> toldBy(const Subject& subject, std::optional<int> facts::Link::*ofLink,
                   std::optional<int> facts::AccessPoint::*ofAccessPoint, std::string_view what) {
  if (subject.link && subject.link->*ofLink) return *(subject.link->*ofLink);
  if (!subject.heard) return subject.notHeard;
  if (subject.heard->*ofAccessPoint) return *(subject.heard->*ofAccessPoint);
  return notTold("Neither the access point nor the driver reports " + std::string(what) + ".");
}

std::optional<Error> whyNotWhole(const Result<facts::Scan>& scan) {
  if (!scan) return scan.error();
  return scan->incomplete;
}

std::vector<const facts::AccessPoint*> accessPointsNamedLike(const Question& question,
                                                             const Subject& subject) {
  std::vector<const facts::AccessPoint*> found;
  if (!question.facts.scan) return found;
  for (const facts::AccessPoint& accessPoint : question.facts.scan->accessPoints) {
    if (&accessPoint == subject.heard || accessPoint.ssid == subject.name) {
      found.push_back(&accessPoint);
    }
  }
  return found;
}

std::optional<Error> whyNotAMember(const Question& question) {
  if (auto why = whyNotKnownWhetherJoined(question)) return why;
  if (asksForJoined(question)) return std::nullopt;
  return Error{Reason::outsideNetwork,
               "Only a member of the network can find this out: join it, and run again."};
}

}  // namespace wifi_profile::checks
