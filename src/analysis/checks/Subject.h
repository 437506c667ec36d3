// The network and access point that a question is about. Pure functions; any thread.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "analysis/checks/Checks.h"

namespace wifi_profile::checks {

// Refers to the question's facts and name, which must outlive it.
struct Subject {
  const facts::Link* link = nullptr;          // nil: another network than the joined one
  const facts::AccessPoint* heard = nullptr;  // nil only for the joined network
  Error notHeard = {};                        // why `heard` is nil
  std::string_view name = {};                 // any bytes
};

// Returns the joined access point if the question has no name or the joined network's name,
// otherwise the strongest access point of that name. Error if there is none, or if it is unknown
// what is joined or in range.
Result<Subject> subjectOf(const Question& question);

// Error strengths come last. Among equal strengths the lower address comes first, so that the
// order of the scan has no effect.
bool isStronger(const facts::AccessPoint& one, const facts::AccessPoint& other);

// Returns the channel from the scan, or the link's primary channel if that is another one now or
// the scan has none. Empty if neither is known.
std::optional<ieee80211::OperatingChannel> channelOf(const Subject& subject);

// Returns the value of the joined link, otherwise that of the access point; or why both are
// missing. `what` goes into the sentence, such as "its beacon interval".
Result<int> toldBy(const Subject& subject, std::optional<int> facts::Link::*ofLink,
                   std::optional<int> facts::AccessPoint::*ofAccessPoint, std::string_view what);

// Returns why the access points in range are unknown or incomplete. Empty if the scan is complete.
std::optional<Error> whyNotWhole(const Result<facts::Scan>& scan);

// Returns the access points of the scan with the subject's name, including the subject's own. Empty
// without a scan.
std::vector<const facts::AccessPoint*> accessPointsNamedLike(const Question& question,
                                                             const Subject& subject);

// For facts that only a member of a network can determine: returns why they are unavailable if the
// question is, or may be, about another network than the joined one. Empty otherwise.
std::optional<Error> whyNotAMember(const Question& question);

// Returns `answer(subject)`, or why there is no subject.
template <class Function>
Answer aboutSubject(const Question& question, Function answer) {
  const Result<Subject> subject = subjectOf(question);
  if (!subject) return subject.error();
  return answer(*subject);
}

// Returns `answer(accessPoint)`, or why there is no access point to examine.
template <class Function>
Answer aboutAccessPoint(const Question& question, Function answer) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    if (!subject.heard) return subject.notHeard;
    return answer(*subject.heard);
  });
}

}  // namespace wifi_profile::checks
