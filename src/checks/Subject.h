// Which network and access point a question is about. Pure functions; any thread.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "checks/Checks.h"

namespace wifi_profile::checks {

// Looks into the question's facts and its name, which must outlive it.
struct Subject {
  const Link* link = nullptr;          // nil: not the joined network
  const AccessPoint* heard = nullptr;  // nil only for the joined network
  Unknown notHeard = {};               // why it is nil
  std::string_view name = {};          // any bytes
};

// Without a name, or with the joined network's: the joined access point. With another one the
// strongest access point that has it. Unknown when there is none, or when nobody knows what is
// joined or in range.
Known<Subject> subjectOf(const Question& question);

// Unknown strengths come last; of equal ones the lower address comes first, so that the order of
// the scan does not count.
bool isStronger(const AccessPoint& one, const AccessPoint& other);

// Where in the air it is: as the scan heard it, unless the link has another primary channel now, or
// there was nothing heard. Nothing: neither says.
std::optional<ieee80211::OperatingChannel> channelOf(const Subject& subject);

// What the joined link says, or else the access point; or why neither does. `what` is for the
// sentence, such as "its beacon interval".
Known<int> toldBy(const Subject& subject, std::optional<int> Link::*ofLink,
                  std::optional<int> AccessPoint::*ofAccessPoint, std::string_view what);

// Why it is not known which access points are in range, or which are not; empty: the scan tells.
std::optional<Unknown> whyNotWhole(const Known<Scan>& scan);

// Those of the scan that have the subject's name, the subject's own among them. None without a
// scan.
std::vector<const AccessPoint*> accessPointsNamedLike(const Question& question,
                                                      const Subject& subject);

// For what only a member of a network can find out: why it cannot, when the question is about
// another network than the joined one.
std::optional<Unknown> whyNotAMember(const Question& question);

// What `answer(subject)` says, or why there is no subject.
template <class Function>
Answer aboutSubject(const Question& question, Function answer) {
  const Known<Subject> subject = subjectOf(question);
  if (!subject) return subject.why();
  return answer(*subject);
}

// What `answer(accessPoint)` says, or why there is no access point to look at.
template <class Function>
Answer aboutAccessPoint(const Question& question, Function answer) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    if (!subject.heard) return subject.notHeard;
    return answer(*subject.heard);
  });
}

}  // namespace wifi_profile::checks
