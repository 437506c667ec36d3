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

Security securityFromProfile(const BusValue& settings) {
  const BusValue& section = settings.at("802-11-wireless-security");
  const BusValue& management = section.at("key-mgmt");
  if (!settings.map().contains("802-11-wireless-security")) return Security::none;
  const std::string method = management.text().value_or("");
  const bool first = isFirstWpaOnly(section.at("proto"));
  constexpr std::int64_t kFramesMustBeProtected = 3;
  if (method == "none" || method == "ieee8021x") return Security::wep;
  if (method == "owe") return Security::owe;
  if (method == "sae") return Security::wpa3Personal;
  if (method == "wpa-psk") return first ? Security::wpaPersonal : Security::wpa2Personal;
  if (method == "wpa-eap-suite-b-192") return Security::wpa3Enterprise;
  if (method != "wpa-eap") return Security::unknown;
  if (section.at("pmf").integer() == kFramesMustBeProtected) return Security::wpa3Enterprise;
  return first ? Security::wpaEnterprise : Security::wpa2Enterprise;
}

Security securityFromSupplicant(const BusValue& properties) {
  const Words methods = wordsOf(properties.at("key_mgmt"));
  const Words protocols = wordsOf(properties.at("proto"));
  const bool first = protocols == Words{"WPA"};
  const auto isSet = [&properties](const char* key) {
    return !properties.at(key).text().value_or("").empty();
  };
  const bool byName = hasAny(methods, {"WPA-EAP", "WPA-EAP-SHA256", "FT-EAP"});
  const bool byPassword = hasAny(methods, {"WPA-PSK", "WPA-PSK-SHA256", "FT-PSK"});
  const bool sae = hasAny(methods, {"SAE", "FT-SAE"});
  if (sae) return byPassword ? Security::wpa2Wpa3Personal : Security::wpa3Personal;
  if (hasAny(methods, {"WPA-EAP-SUITE-B-192", "WPA-EAP-SUITE-B"})) return Security::wpa3Enterprise;
  // By default, wpa_supplicant allows both; the settings then show which one is meant.
  if (byName && (!byPassword || isSet("eap") || isSet("identity"))) {
    return first ? Security::wpaEnterprise : Security::wpa2Enterprise;
  }
  if (byPassword) return first ? Security::wpaPersonal : Security::wpa2Personal;
  if (methods.contains("OWE")) return Security::owe;
  if (methods.contains("IEEE8021X")) return Security::wep;
  if (!methods.contains("NONE")) return Security::unknown;
  constexpr const char* kKeys[] = {"wep_key0", "wep_key1", "wep_key2", "wep_key3"};
  return std::any_of(std::begin(kKeys), std::end(kKeys), isSet) ? Security::wep : Security::none;
}

Security securityFromIwd(const std::string& type) {
  if (type == "open") return Security::none;
  if (type == "wep") return Security::wep;
  // The access point chooses between WPA, WPA2 and WPA3; WPA2 stands for all three.
  if (type == "psk") return Security::wpa2Personal;
  if (type == "8021x" || type == "hotspot") return Security::wpa2Enterprise;
  return Security::unknown;
}

}  // namespace wifi_profile::linux::bus
