// Checks of the scan as a whole.
#include <algorithm>
#include <array>
#include <map>

#include "analysis/checks/Answers.h"
#include "analysis/checks/Rows.h"
#include "analysis/checks/Subject.h"
#include "diagnostic/platform/Array.h"

namespace wifi_profile::checks {
namespace {

constexpr int kUnknownStrength = -100;  // dBm

// The kernel's code for the intersection of several countries' rules, which it uses after it was
// given two countries.
constexpr const char* kIntersection = "98";

// Codes that ISO 3166-1 reserves for users: AA, QM to QZ, XA to XZ, ZZ.
bool isUserAssigned(const std::string& code) {
  return code == "AA" || code == "ZZ" || code[0] == 'X' || (code[0] == 'Q' && code[1] >= 'M');
}

// True for two capital letters of a country. False for "EU" and for the kernel's "00", "98" and
// "99".
bool isCountry(const std::string& code) {
  const auto isCapital = [](char letter) { return letter >= 'A' && letter <= 'Z'; };
  return code.size() == 2 && std::ranges::all_of(code, isCapital) && code != "EU" &&
         !isUserAssigned(code);
}

std::optional<std::string> kernelCountry(const facts::Facts& facts) {
  if (!facts.regulatory || !isCountry(facts.regulatory->country)) return std::nullopt;
  return facts.regulatory->country;
}

std::optional<std::string> countryOfSubject(const Question& question) {
  const auto subject = subjectOf(question);
  if (!subject || !subject->heard) return std::nullopt;
  const auto& country = subject->heard->country;
  return country && isCountry(*country) ? country : std::nullopt;
}

const Error kSecondHand{Reason::notTold,
                        "For some access points only NetworkManager's list is available; it does "
                        "not show countries. Scan again as root or from a local session."};

Answer conflictingCountries(const Question& question) {
  const facts::Facts& facts = question.facts;
  if (auto why = whyNotWhole(facts.scan)) return *std::move(why);
  // If the named network was not received, there is no result for it.
  if (question.networkName) {
    if (const auto subject = subjectOf(question); !subject) return subject.error();
  }
  std::map<std::string, int> counts;
  for (const facts::AccessPoint& accessPoint : facts.scan->accessPoints) {
    if (accessPoint.country && isCountry(*accessPoint.country)) ++counts[*accessPoint.country];
  }
  const auto kernel = kernelCountry(facts);
  const bool isMixed = facts.regulatory && facts.regulatory->country == kIntersection;
  const bool differ =
      isMixed || (kernel ? counts.size() > counts.count(*kernel) : counts.size() > 1);
  if (!differ && !facts.regulatory) return facts.regulatory.error();
  const auto& heard = facts.scan->accessPoints;
  if (!differ && std::ranges::any_of(heard, &facts::AccessPoint::isSecondHand)) return kSecondHand;
  auto adopted = kernel ? kernel : countryOfSubject(question);
  if (!adopted && !counts.empty()) {
    adopted =
        std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; })->first;
  }
  Dictionary::Entries info;
  if (adopted) info["AdoptedCountryCode"] = makeText(*adopted);
  return finding(differ, std::move(info));
}

ObjectRef scanResult(const facts::AccessPoint& accessPoint) {
  return std::make_shared<const VqWiFiScanResult>(
      accessPoint.ssid ? makeText(*accessPoint.ssid) : nullptr, makeText(accessPoint.bssid),
      accessPoint.signal.value_or(kUnknownStrength));
}

// Strongest first.
ObjectRef scanResults(std::vector<const facts::AccessPoint*> accessPoints) {
  std::ranges::sort(accessPoints,
                    [](const facts::AccessPoint* one, const facts::AccessPoint* other) {
                      return isStronger(*one, *other);
                    });
  std::vector<ObjectRef> results;
  results.reserve(accessPoints.size());
  for (const facts::AccessPoint* accessPoint : accessPoints)
    results.push_back(scanResult(*accessPoint));
  return std::make_shared<const Array>(std::move(results));
}

Answer hiddenScanResults(const Question& question) {
  const Result<facts::Scan>& scan = question.facts.scan;
  if (auto why = whyNotWhole(scan)) return *std::move(why);
  std::vector<const facts::AccessPoint*> hidden;
  for (const facts::AccessPoint& accessPoint : scan->accessPoints) {
    if (accessPoint.hidesName == true) hidden.push_back(&accessPoint);
  }
  const bool isAny = !hidden.empty();
  return finding(isAny, {{"ScanResults", scanResults(std::move(hidden))}});
}

Answer noScanResults(const Question& question) {
  const Result<facts::Scan>& scan = question.facts.scan;
  if (auto why = whyNotWhole(scan)) return *std::move(why);
  std::vector<const facts::AccessPoint*> all;
  for (const facts::AccessPoint& accessPoint : scan->accessPoints) all.push_back(&accessPoint);
  const bool isNone = all.empty();
  // An empty list is a valid result: it replaces the list on the screen, so the test passes.
  return DiagnosticsTestResult{isNone, true,
                               makeDictionary({{"ScanResults", scanResults(std::move(all))}})};
}

constexpr std::array kScanRows{
    Check{
        .id = DiagnosticsTestID::ConflictingCountryCode,
        .answer = conflictingCountries,
        .needs = {facts::Fact::link, facts::Fact::scan, facts::Fact::regulatory},
        .measures = "Whether the access points in range and the kernel name different countries. "
                    "The adopted country is the kernel's, else the network's, else the one that "
                    "most access points name.",
        .from = "Country elements of the scan; NL80211_ATTR_REG_ALPHA2",
        .threshold =
            "two different codes, or 98 in the kernel, which then follows the rules of several "
            "countries. No countries are: 00 (none is set, which contradicts none and only limits "
            "the channels), 99, EU and the user-assigned codes (AA, QM to QZ, XA to XZ, ZZ)",
        .why = "The country determines which channels and powers are allowed. Country element: "
               "IEEE 802.11-2020, 9.4.2.8",
        .unknownWhen = "there is no scan; the other network asked about was not received; or the "
                       "access points agree, and the kernel's country cannot be read or some "
                       "access points are known only from NetworkManager"},
    Check{.id = DiagnosticsTestID::HiddenScanResults,
          .answer = hiddenScanResults,
          .needs = {facts::Fact::scan},
          .measures = "The access points whose beacons hide their name, also those whose name is "
                      "known from their probe responses.",
          .from = "SSID elements of beacons",
          .threshold = "one",
          .why = "A hidden SSID is empty or zeros: a common practice that the standard does not "
                 "describe",
          .unknownWhen = "there is no scan"},
    Check{.id = DiagnosticsTestID::NoScanResults,
          .answer = noScanResults,
          .needs = {facts::Fact::scan},
          .measures = "Whether no access point at all was received. The result is the list of all "
                      "access points, strongest first, for the list of networks; an empty result "
                      "empties that list. -100 dBm stands for an unknown strength.",
          .from = "NL80211_CMD_GET_SCAN. Of a new scan: what was last received since it began "
                  "(NL80211_BSS_LAST_SEEN_BOOTTIME or _SEEN_MS_AGO), or up to MaxScanCacheAge "
                  "before that. Of an earlier scan: all that the kernel keeps, which is 30 s. The "
                  "joined access point is always included",
          .threshold = "none",
          .why = "Without an access point there is nothing to choose from",
          .unknownWhen = "there is no scan"},
};

}  // namespace

std::span<const Check> scanChecks() { return kScanRows; }

}  // namespace wifi_profile::checks
