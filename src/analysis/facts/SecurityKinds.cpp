#include "analysis/facts/SecurityKinds.h"

namespace wifi_profile::facts {

using ieee80211::Security;

std::string_view textOf(Security security) {
  for (const auto& [name, named] : kSecurityNames) {
    if (named == security && security != Security::unknown) return name;
  }
  return {};
}

std::optional<KeyKind> keyKindOf(Security security) {
  switch (security) {
    case Security::none:
    case Security::owe:
      return KeyKind::open;
    case Security::wep:
      return KeyKind::wep;
    case Security::wpaPersonal:
    case Security::wpa2Personal:
    case Security::wpa2Wpa3Personal:
    case Security::wpa3Personal:
      return KeyKind::personal;
    case Security::wpaEnterprise:
    case Security::wpa2Enterprise:
    case Security::wpa2Wpa3Enterprise:
    case Security::wpa3Enterprise:
      return KeyKind::enterprise;
    case Security::unknown:
      break;
  }
  return std::nullopt;
}

}  // namespace wifi_profile::facts
