#include "analysis/ieee80211/Security.h"

#include <algorithm>

namespace wifi_profile::ieee80211 {
namespace {

constexpr std::uint16_t kPrivacyBit = 0x0010;

bool has(const RsnElement& element, std::uint32_t oui, std::initializer_list<std::uint8_t> types) {
  return std::ranges::any_of(element.akms, [&](const Suite& suite) {
    return suite.oui == oui && std::ranges::count(types, suite.type) > 0;
  });
}

Security ofPersonal(bool psk, bool sae) {
  if (psk && sae) return Security::wpa2Wpa3Personal;
  return sae ? Security::wpa3Personal : Security::wpa2Personal;
}

// WPA3-Enterprise (Wi-Fi Alliance, WPA3) uses SHA-256 and requires protected management frames. Its
// transition mode adds SHA-1 and makes the protection optional for the station. Its 192-bit mode is
// not combined with SHA-1.
Security ofEnterprise(const RsnElement& rsn) {
  const bool sha1 = has(rsn, kStandardOui, {akm::k8021X});
  const bool sha256 = has(rsn, kStandardOui, {akm::k8021XSha256});
  if (!sha1 && (rsn.requiresManagementProtection() ||
                has(rsn, kStandardOui, {akm::kSuiteB192, akm::kFtSuiteB192}))) {
    return Security::wpa3Enterprise;
  }
  if (sha1 && sha256 && rsn.hasManagementProtection()) return Security::wpa2Wpa3Enterprise;
  return Security::wpa2Enterprise;
}

// Error suites may occur beside the known ones; they are ignored.
Security ofRsn(const RsnElement& rsn) {
  const bool psk =
      has(rsn, kStandardOui,
          {akm::kPsk, akm::kFtPsk, akm::kPskSha256, akm::kFtPskSha384, akm::kPskSha384});
  const bool sae = has(rsn, kStandardOui,
                       {akm::kSae, akm::kFtSae, akm::kSaeExtendedKey, akm::kFtSaeExtendedKey});
  const bool enterprise =
      has(rsn, kStandardOui,
          {akm::k8021X, akm::kFt8021X, akm::k8021XSha256, akm::kSuiteB, akm::kSuiteB192,
           akm::kFtSuiteB192, akm::kFilsSha256, akm::kFilsSha384, akm::kFtFilsSha256,
           akm::kFtFilsSha384, akm::kFt8021XSha384, akm::k8021XSha384});
  const bool owe = has(rsn, kStandardOui, {akm::kOwe});
  if (int{psk || sae} + int{enterprise} + int{owe} != 1) return Security::unknown;
  if (owe) return Security::owe;
  return enterprise ? ofEnterprise(rsn) : ofPersonal(psk, sae);
}

Security ofWpa(const RsnElement& wpa) {
  const bool psk = has(wpa, kWpaOui, {akm::kPsk});
  const bool enterprise = has(wpa, kWpaOui, {akm::k8021X});
  if (psk == enterprise) return Security::unknown;
  return psk ? Security::wpaPersonal : Security::wpaEnterprise;
}

}  // namespace

SecurityElements readSecurityElements(const ElementSet& elements) {
  const auto rsn = elements.payload(Kind::rsn);
  const auto wpa = elements.payload(Kind::wpa);
  return {.rsn = rsn ? parseRsn(*rsn) : std::nullopt, .wpa = wpa ? parseWpa(*wpa) : std::nullopt};
}

Security summarize(const ElementSet& elements, const SecurityElements& read,
                   std::uint16_t capabilities) {
  if (read.rsn) return ofRsn(*read.rsn);
  if (elements.has(Kind::rsn) || elements.truncated()) return Security::unknown;
  if (read.wpa) return ofWpa(*read.wpa);
  if (elements.has(Kind::wpa) || elements.has(Kind::wapi) || elements.has(Kind::osen)) {
    return Security::unknown;
  }
  return (capabilities & kPrivacyBit) != 0 ? Security::wep : Security::none;
}

}  // namespace wifi_profile::ieee80211
