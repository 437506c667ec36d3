#include "analysis/checks/Settings.h"

namespace wifi_profile::checks {

Settings defaultSettings() {
  Settings settings;
  settings.ambiguousNames = {
      // Names that the access points of many makers have until the user gives them another one.
      "2wire*", "androidap*", "asus", "asus_5g", "belkin*", "buffalo*", "cisco", "d-link*",
      "dlink*", "fritz!box*", "huawei", "linksys*", "netgear*", "tenda_*", "tp-link*", "trendnet*",
      "xiaomi", "zyxel",
      // Generic names that many users choose.
      "default", "free wifi", "freewifi", "guest", "home", "hotspot", "internet", "my wifi",
      "network", "public", "router", "setup", "ssid", "test", "wi-fi", "wifi", "wireless", "wlan"};
  settings.hotspotSubnets = {
      "192.168.43.0/24",   // Android, fixed in earlier versions
      "172.20.10.0/28",    // other phones
      "192.168.137.0/24",  // Windows, Internet Connection Sharing
      "10.42.0.0/24",      // NetworkManager, method "shared"
  };
  return settings;
}

}  // namespace wifi_profile::checks
