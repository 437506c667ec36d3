// The security of saved networks, in the words of three managers.

#include <gtest/gtest.h>

#include "Values.h"
#include "devices/linux/bus/ProfileSecurity.h"

namespace wifi_profile::machine {
namespace {

using ieee80211::Security;

Security ofProfile(BusValue::Map section) {
  return securityFromProfile(map({{"802-11-wireless-security", map(std::move(section))}}));
}

TEST(ProfileSecurity, OfAProfileWithoutTheSectionIsNone) {
  EXPECT_EQ(securityFromProfile(map({})), Security::none);
}

TEST(ProfileSecurity, IsTheKeyManagementOfAProfile) {
  EXPECT_EQ(ofProfile({{"key-mgmt", text("none")}}), Security::wep);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("ieee8021x")}}), Security::wep);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("owe")}}), Security::owe);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-psk")}}), Security::wpa2Personal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("sae")}}), Security::wpa3Personal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}}), Security::wpa2Enterprise);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap-suite-b-192")}}), Security::wpa3Enterprise);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("newer")}}), Security::unknown);
  EXPECT_EQ(ofProfile({{"key-mgmt", number(1)}}), Security::unknown);
  EXPECT_EQ(ofProfile({}), Security::unknown);
}

TEST(ProfileSecurity, IsTheFirstWpaWhereAProfileAllowsNoOther) {
  const BusValue first = list({text("wpa")});
  const BusValue both = list({text("wpa"), text("rsn")});
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-psk")}, {"proto", first}}), Security::wpaPersonal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-psk")}, {"proto", both}}), Security::wpa2Personal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}, {"proto", first}}), Security::wpaEnterprise);
}

TEST(ProfileSecurity, IsWpa3WhereFramesMustBeProtectedInAnEnterprise) {
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}, {"pmf", number(3)}}),
            Security::wpa3Enterprise);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}, {"pmf", number(2)}}),
            Security::wpa2Enterprise);
}

Security ofSupplicant(const char* methods, BusValue::Map more = {}) {
  more.emplace("key_mgmt", text(methods));
  return securityFromSupplicant(map(std::move(more)));
}

TEST(ProfileSecurity, IsReadFromTheWordsOfWpaSupplicant) {
  EXPECT_EQ(ofSupplicant("NONE"), Security::none);
  EXPECT_EQ(ofSupplicant("NONE", {{"wep_key0", text("*")}}), Security::wep);
  EXPECT_EQ(ofSupplicant("NONE", {{"wep_key3", text("*")}}), Security::wep);
  EXPECT_EQ(ofSupplicant("IEEE8021X"), Security::wep);
  EXPECT_EQ(ofSupplicant("OWE"), Security::owe);
  EXPECT_EQ(ofSupplicant("WPA-PSK"), Security::wpa2Personal);
  EXPECT_EQ(ofSupplicant("WPA-PSK", {{"proto", text("WPA")}}), Security::wpaPersonal);
  EXPECT_EQ(ofSupplicant("WPA-PSK", {{"proto", text("WPA RSN")}}), Security::wpa2Personal);
  EXPECT_EQ(ofSupplicant("SAE"), Security::wpa3Personal);
  EXPECT_EQ(ofSupplicant("WPA-PSK SAE"), Security::wpa2Wpa3Personal);
  EXPECT_EQ(ofSupplicant("WPA-EAP"), Security::wpa2Enterprise);
  EXPECT_EQ(ofSupplicant("WPA-EAP", {{"proto", text("WPA")}}), Security::wpaEnterprise);
  EXPECT_EQ(ofSupplicant("WPA-EAP-SUITE-B-192"), Security::wpa3Enterprise);
  EXPECT_EQ(ofSupplicant("WPS"), Security::unknown);
  EXPECT_EQ(ofSupplicant(""), Security::unknown);
}

TEST(ProfileSecurity, OfANetworkThatAllowsBothIsWhatItHas) {
  EXPECT_EQ(ofSupplicant("WPA-PSK WPA-EAP"), Security::wpa2Personal);
  EXPECT_EQ(ofSupplicant("WPA-PSK WPA-EAP", {{"eap", text("PEAP")}}), Security::wpa2Enterprise);
  EXPECT_EQ(ofSupplicant("WPA-PSK WPA-EAP", {{"identity", text("me")}}), Security::wpa2Enterprise);
}

TEST(ProfileSecurity, IsReadFromTheTypesOfIwd) {
  EXPECT_EQ(securityFromIwd("open"), Security::none);
  EXPECT_EQ(securityFromIwd("wep"), Security::wep);
  EXPECT_EQ(securityFromIwd("psk"), Security::wpa2Personal);
  EXPECT_EQ(securityFromIwd("8021x"), Security::wpa2Enterprise);
  EXPECT_EQ(securityFromIwd("hotspot"), Security::wpa2Enterprise);
  EXPECT_EQ(securityFromIwd("newer"), Security::unknown);
}

}  // namespace
}  // namespace wifi_profile::machine
