// Checks of the saved networks and of sign-in pages.
#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "analysis/checks/Answers.h"
#include "analysis/checks/Rows.h"
#include "analysis/checks/Subject.h"
#include "analysis/facts/SecurityKinds.h"
#include "diagnostic/platform/Number.h"

namespace wifi_profile::checks {
namespace {

// An empty kind stands for a network whose security is unclear.
using KindsByName = std::map<std::string, std::set<std::optional<facts::KeyKind>>>;

// True if access points of that name were received and all have other kinds. Empty if none has this
// kind and one of them is unclear.
std::optional<bool> contradicts(const KindsByName& air, const std::string& name,
                                facts::KeyKind saved) {
  const auto heard = air.find(name);
  if (heard == air.end() || heard->second.contains(saved)) return false;
  if (heard->second.contains(std::nullopt)) return std::nullopt;
  return true;
}

Answer conflictingSecurity(const Question& question) {
  const facts::Facts& facts = question.facts;
  if (!facts.savedNetworks) return facts.savedNetworks.error();
  KindsByName air;
  if (facts.scan) {
    for (const facts::AccessPoint& accessPoint : facts.scan->accessPoints) {
      if (accessPoint.ssid) air[*accessPoint.ssid].insert(facts::keyKindOf(accessPoint.security));
    }
  }
  KindsByName all;
  for (const facts::SavedNetwork& saved : *facts.savedNetworks) {
    if (!saved.ssid.empty()) all[saved.ssid].insert(facts::keyKindOf(saved.security));
  }
  bool isSure = true;
  for (const auto& [name, kinds] : all) {
    std::size_t known = 0;
    for (const auto& kind : kinds) {
      const auto isContradicted = kind ? contradicts(air, name, *kind) : std::nullopt;
      known += kind ? 1 : 0;
      if (known > 1 || isContradicted == true) return finding(true);
      if (!isContradicted && (kinds.size() > 1 || air.contains(name))) isSure = false;
    }
  }
  if (auto why = whyNotWhole(facts.scan)) return *std::move(why);
  if (!isSure) {
    return notTold(
        "A remembered network, or an access point of its name, does not say clearly how it is "
        "secured: scan again, or set its security anew.");
  }
  return finding(false);
}

Answer largeList(const Question& question) {
  const auto& saved = question.facts.savedNetworks;
  if (!saved) return saved.error();
  const auto count = static_cast<std::int64_t>(saved->size());
  return finding(count > question.settings.largeSavedListAbove,
                 {{"PNLCount", Number::withInteger(count)}});
}

Answer containsHidden(const Question& question) {
  const auto& saved = question.facts.savedNetworks;
  if (!saved) return saved.error();
  return finding(std::ranges::any_of(*saved, &facts::SavedNetwork::isHidden));
}

// Returns the subject's profile. Among several of that name, prefers one with the subject's kind of
// keys, then the one joined last, then the first.
const facts::SavedNetwork* profileOf(const facts::Facts& facts, const Subject& subject) {
  if (!facts.savedNetworks) return nullptr;
  const auto kind = subject.heard ? facts::keyKindOf(subject.heard->security) : std::nullopt;
  const auto fits = [&](const facts::SavedNetwork& saved) {
    const auto own = facts::keyKindOf(saved.security);
    return own && kind && *own == *kind;
  };
  const auto isBefore = [&](const facts::SavedNetwork& one, const facts::SavedNetwork& other) {
    if (fits(one) != fits(other)) return fits(other);
    if (!one.lastJoined || !other.lastJoined) return !one.lastJoined && other.lastJoined;
    return one.lastJoined->secondsSinceReferenceDate < other.lastJoined->secondsSinceReferenceDate;
  };
  const facts::SavedNetwork* found = nullptr;
  for (const facts::SavedNetwork& saved : *facts.savedNetworks) {
    if (saved.ssid != subject.name) continue;
    if (!found || isBefore(*found, saved)) found = &saved;
  }
  return found;
}

ObjectRef recordOf(const Question& question, const Subject& subject,
                   const facts::SavedNetwork& saved, bool isCaptive) {
  auto record = std::make_shared<PreferredNetworkRecord>();
  record->ssidString = makeText(saved.ssid);
  record->security = static_cast<std::int64_t>(saved.security);
  record->isPasspoint = saved.isPasspoint;
  record->isEnabled = saved.joinsByItself;
  record->isCaptive = isCaptive;
  record->isHidden = saved.isHidden;
  record->isMultiAP = saved.accessPoints > 1 || accessPointsNamedLike(question, subject).size() > 1;
  record->lastJoinedTimestamp = saved.lastJoined;
  return record;
}

Answer captivePortal(const Question& question) {
  return aboutSubject(question, [&](const Subject& subject) -> Answer {
    const facts::Facts& facts = question.facts;
    const bool isMarked = subject.heard && subject.heard->additionalStepNeeded;
    bool isCaptive = isMarked;
    if (subject.link) {
      if (!facts.portalProbe) return facts.portalProbe.error();
      if (facts.portalProbe->answer == facts::PortalProbe::Answer::noAnswer) {
        return Error{
            Reason::failed,
            "The page that shows whether one must sign in did not come, so "
            "open any page in a browser to see" +
                (facts.portalProbe->detail.empty() ? "."
                                                   : " (" + facts.portalProbe->detail + ").")};
      }
      isCaptive = facts.portalProbe->answer == facts::PortalProbe::Answer::portal;
    } else if (!isMarked) {
      return Error{Reason::outsideNetwork,
                   "Only a member of the network can tell whether it has a sign-in page: join "
                   "it, and run again."};
    }
    Dictionary::Entries info;
    if (const facts::SavedNetwork* saved = profileOf(facts, subject)) {
      info["PreferredNetwork"] = recordOf(question, subject, *saved, isCaptive || isMarked);
    }
    return finding(isCaptive, std::move(info));
  });
}

constexpr std::string_view kSavedFrom =
    "profiles of NetworkManager, else known networks of iwd, else networks of wpa_supplicant";
constexpr std::string_view kSavedUnknownWhen =
    "none of these services is running, or the user may not read them";

constexpr std::array kSavedNetworkRows{
    Check{.id = DiagnosticsTestID::ConflictingSecurityTypeInPNL,
          .answer = conflictingSecurity,
          .needs = {facts::Fact::savedNetworks, facts::Fact::scan},
          .measures = "Whether one name is remembered with different kinds of keys, or with a kind "
                      "that no access point of that name in range has.",
          .from = kSavedFrom,
          .threshold = "two kinds of: open (with OWE), WEP, password (WPA, WPA2 or WPA3 Personal), "
                       "sign-in (Enterprise)",
          .why = "One of them is out of date, or another network has the same name. The kinds are "
                 "this project's: access points that change from one security to the next of its "
                 "kind keep name and key",
          .unknownWhen = "none of these services is running, or the user may not read them; or the "
                         "remembered networks agree, and there is no scan or an access point of "
                         "that name does not show how it is secured"},
    Check{
        .id = DiagnosticsTestID::CaptivePortal,
        .answer = captivePortal,
        .needs = {facts::Fact::link, facts::Fact::scan, facts::Fact::portalProbe,
                  facts::Fact::savedNetworks},
        .measures = "For the joined network, whether it answers plain HTTP in place of the "
                    "requested page. A network that names an address for this question is also "
                    "asked there; if that gives no answer, the page counts. For another network, "
                    "whether it announces that more steps are needed after joining. The remembered "
                    "network goes with the answer (of several profiles one with the network's kind "
                    "of keys, joined last). Its security is a number, listed in docs/CHECKS.md; "
                    "its isCaptive also reflects the announcement, and its isMultiAP the scan.",
        .from = "HTTP GET without following redirects, or the address that DHCP gave (RFC 8910, "
                "RFC 8908), as NetworkManager passes it on; Interworking element (ASRA bit)",
        .threshold = "a redirect, another page or status 511 (a redirect to the same host by https "
                     "says nothing); 204, and 200 without a body, mean open; the ASRA bit",
        .why = "Interworking: IEEE 802.11-2020, 9.4.2.91",
        .unknownWhen =
            "joined: nothing answers, or the status is another one; not joined: the access point "
            "does not announce it, which does not mean that there is no sign-in page"},
    Check{.id = DiagnosticsTestID::LargePNL,
          .answer = largeList,
          .needs = {facts::Fact::savedNetworks},
          .measures = "The number of remembered networks.",
          .from = kSavedFrom,
          .threshold = "above 50 networks (`largeSavedListAbove`)",
          .why = "This project's choice",
          .unknownWhen = kSavedUnknownWhen},
    Check{.id = DiagnosticsTestID::PNLContainsHidden,
          .answer = containsHidden,
          .needs = {facts::Fact::savedNetworks},
          .measures = "Whether a remembered network is marked as hidden.",
          .from = "NetworkManager: 802-11-wireless.hidden; iwd: Hidden; wpa_supplicant: scan_ssid",
          .threshold = "one",
          .why = "The device calls for it by name, wherever it is",
          .unknownWhen = kSavedUnknownWhen},
};

}  // namespace

std::span<const Check> savedNetworkChecks() { return kSavedNetworkRows; }

}  // namespace wifi_profile::checks
