#include "devices/linux/bus/ProfileSecurity.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace wifi_profile::linux::bus {

using ieee80211::Security;

namespace {

using Words = std::set<std::string, std::less<>>;

Words wordsOf(const BusValue& value) {
  std::istringstream text(value.text().value_or(""));
  Words words;
  for (std::string word; text >> word;) words.insert(word);
  return words;
}

// Whether the profile allows only the first version of WPA.
bool isFirstWpaOnly(const BusValue& protocols) {
  const BusValue::List& list = protocols.list();
  return !list.empty() && std::all_of(list.begin(), list.end(), [](const BusValue& protocol) {
    return protocol.text() == "wpa";
  });
}

bool hasAny(const Words& words, std::initializer_list<const char*> wanted) {
  return std::any_of(wanted.begin(), wanted.end(),
                     [&words](const char* word) { return words.contains(word); });
}

}  // namespace

ieee80211::Security securityFromProfile(const BusValue& settings) {
  const BusValue& section = settings.at("802-11-wireless-security");
  const BusValue& management = section.at("key-mgmt");
  if (!settings.map().contains("802-11-wireless-security")) return ieee80211::Security::none;
  const std::string method = management.text().value_or("");
  const bool first = isFirstWpaOnly(section.at("proto"));
  constexpr std::int64_t kFramesMustBeProtected = 3;
  if (method == "none" || method == "ieee8021x") return ieee80211::Security::wep;
  if (method == "owe") return ieee80211::Security::owe;
  if (method == "sae") return ieee80211::Security::wpa3Personal;
  if (method == "wpa-psk")
    return first ? ieee80211::Security::wpaPersonal : ieee80211::Security::wpa2Personal;
  if (method == "wpa-eap-suite-b-192") return ieee80211::Security::wpa3Enterprise;
  if (method != "wpa-eap") return ieee80211::Security::unknown;
  if (section.at("pmf").integer() == kFramesMustBeProtected)
    return ieee80211::Security::wpa3Enterprise;
  return first ? ieee80211::Security::wpaEnterprise : ieee80211::Security::wpa2Enterprise;
}

ieee80211::Security securityFromSupplicant(const BusValue& properties) {
  const Words methods = wordsOf(properties.at("key_mgmt"));
  const Words protocols = wordsOf(properties.at("proto"));
  const bool first = protocols == Words{"WPA"};
  const auto isSet = [&properties](const char* key) {
    return !properties.at(key).text().value_or("").empty();
  };
  const bool byName = hasAny(methods, {"WPA-EAP", "WPA-EAP-SHA256", "FT-EAP"});
  const bool byPassword = hasAny(methods, {"WPA-PSK", "WPA-PSK-SHA256", "FT-PSK"});
  const bool sae = hasAny(methods, {"SAE", "FT-SAE"});
  if (sae)
    return byPassword ? ieee80211::Security::wpa2Wpa3Personal : ieee80211::Security::wpa3Personal;
  if (hasAny(methods, {"WPA-EAP-SUITE-B-192", "WPA-EAP-SUITE-B"}))
    return ieee80211::Security::wpa3Enterprise;
  // By default, wpa_supplicant allows both; the settings then show which one is meant.
  if (byName && (!byPassword || isSet("eap") || isSet("identity"))) {
    return first ? ieee80211::Security::wpaEnterprise : ieee80211::Security::wpa2Enterprise;
  }
  if (byPassword)
    return first ? ieee80211::Security::wpaPersonal : ieee80211::Security::wpa2Personal;
  if (methods.contains("OWE")) return ieee80211::Security::owe;
  if (methods.contains("IEEE8021X")) return ieee80211::Security::wep;
  if (!methods.contains("NONE")) return ieee80211::Security::unknown;
  constexpr const char* kKeys[] = {"wep_key0", "wep_key1", "wep_key2", "wep_key3"};
  return std::any_of(std::begin(kKeys), std::end(kKeys), isSet) ? ieee80211::Security::wep
                                                                : ieee80211::Security::none;
}

ieee80211::Security securityFromIwd(const std::string& type) {
  if (type == "open") return ieee80211::Security::none;
  if (type == "wep") return ieee80211::Security::wep;
  // The access point chooses between WPA, WPA2 and WPA3; WPA2 stands for all three.
  if (type == "psk") return ieee80211::Security::wpa2Personal;
  if (type == "8021x" || type == "hotspot") return ieee80211::Security::wpa2Enterprise;
  return ieee80211::Security::unknown;
}

}  // namespace wifi_profile::linux::bus
