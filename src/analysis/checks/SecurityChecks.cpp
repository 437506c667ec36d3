// Checks of the network's security.
#include <algorithm>
#include <array>

#include "analysis/checks/Answers.h"
#include "analysis/checks/Rows.h"
#include "analysis/checks/Subject.h"
#include "analysis/facts/SecurityKinds.h"

namespace wifi_profile::checks {
namespace {

Answer securityIsOneOf(const Question& question,
                       std::initializer_list<ieee80211::Security> securities) {
  return aboutAccessPoint(question, [&](const facts::AccessPoint& accessPoint) -> Answer {
    const ieee80211::Security security = accessPoint.security;
    const auto text = facts::textOf(security);
    if (text.empty()) {
      return notTold("The access point does not show clearly how it is secured: scan again.");
    }
    return finding(std::ranges::find(securities, security) != securities.end(),
                   {{"Security", makeText(text)}});
  });
}

Answer noSecurity(const Question& question) {
  return securityIsOneOf(question, {ieee80211::Security::none});
}

Answer wepSecurity(const Question& question) {
  return securityIsOneOf(question, {ieee80211::Security::wep});
}

Answer wpaSecurity(const Question& question) {
  return securityIsOneOf(question,
                         {ieee80211::Security::wpaPersonal, ieee80211::Security::wpaEnterprise});
}

constexpr std::string_view kUnknownWhen =
    "the access point was not received, or its elements are damaged, contradict each other or are "
    "of another kind";

constexpr std::array kSecurityRows{
    Check{.id = DiagnosticsTestID::NoSecurity,
          .answer = noSecurity,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether frames are sent unencrypted. OWE, which encrypts without a "
                      "password, is not open.",
          .from = "Privacy bit of the Capability Information; absence of RSN and WPA elements",
          .threshold = "open",
          .why = "Anyone nearby can read the frames. Privacy bit: IEEE 802.11-2020, 9.4.1.4; OWE: "
                 "RFC 8110",
          .unknownWhen = kUnknownWhen},
    Check{.id = DiagnosticsTestID::LegacySecurityWEP,
          .answer = wepSecurity,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether the network uses WEP.",
          .from = "Privacy bit of the Capability Information; absence of RSN and WPA elements",
          .threshold = "WEP",
          .why = "Its keys are found within minutes. The standard keeps it for old devices only: "
                 "IEEE 802.11-2020, 12.3",
          .unknownWhen = kUnknownWhen},
    Check{.id = DiagnosticsTestID::LegacySecurityWPA,
          .answer = wpaSecurity,
          .needs = {facts::Fact::link, facts::Fact::scan},
          .measures = "Whether the network offers the first WPA and nothing newer.",
          .from = "WPA element; absence of an RSN element",
          .threshold = "WPA Personal or WPA Enterprise; not WPA together with WPA2, nor WPA2 with "
                       "TKIP for broadcasts (the group cipher), as such mixed networks have",
          .why =
              "It is based on TKIP, which IEEE 802.11-2020, 12.5.2, calls deprecated. In a mixed "
              "network only broadcasts are that weak: its members' own frames use the newer cipher",
          .unknownWhen = kUnknownWhen},
};

}  // namespace

std::span<const Check> securityChecks() { return kSecurityRows; }

}  // namespace wifi_profile::checks
