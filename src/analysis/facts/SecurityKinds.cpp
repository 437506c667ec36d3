#include "analysis/facts/SecurityKinds.h"

namespace wifi_profile::facts {

using ieee80211::Security;

std::string_view textOf(ieee80211::Security security) {
  for (const auto& [name, named] : kSecurityNames) {
    if (named == security && security != ieee80211::Security::unknown) return name;
  }
  return {};
}

std::optional<KeyKind> keyKindOf(ieee80211::Security security) {
  switch (security) {
    case ieee80211::Security::none:
    case ieee80211::Security::owe:
      return KeyKind::open;
    case ieee80211::Security::wep:
      return KeyKind::wep;
    case ieee80211::Security::wpaPersonal:
    case ieee80211::Security::wpa2Personal:
    case ieee80211::Security::wpa2Wpa3Personal:
    case ieee80211::Security::wpa3Personal:
      return KeyKind::personal;
    case ieee80211::Security::wpaEnterprise:
    case ieee80211::Security::wpa2Enterprise:
    case ieee80211::Security::wpa2Wpa3Enterprise:
    case ieee80211::Security::wpa3Enterprise:
      return KeyKind::enterprise;
    case ieee80211::Security::unknown:
      break;
  }
  return std::nullopt;
}

}  // namespace wifi_profile::facts
