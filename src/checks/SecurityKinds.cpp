#include "checks/SecurityKinds.h"

namespace wifi_profile::checks {

using ieee80211::Security;

std::string_view textOf(Security security) {
  switch (security) {
    case Security::none:
      return "None";
    case Security::owe:
      return "OWE";
    case Security::wep:
      return "WEP";
    case Security::wpaPersonal:
      return "WPA Personal";
    case Security::wpaEnterprise:
      return "WPA Enterprise";
    case Security::wpa2Personal:
      return "WPA2 Personal";
    case Security::wpa2Enterprise:
      return "WPA2 Enterprise";
    case Security::wpa2Wpa3Personal:
      return "WPA2/WPA3 Personal";
    case Security::wpa2Wpa3Enterprise:
      return "WPA2/WPA3 Enterprise";
    case Security::wpa3Personal:
      return "WPA3 Personal";
    case Security::wpa3Enterprise:
      return "WPA3 Enterprise";
    case Security::unknown:
      break;
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

}  // namespace wifi_profile::checks
