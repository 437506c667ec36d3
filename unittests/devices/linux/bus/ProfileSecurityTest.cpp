// The security of saved networks, in the words of three managers.

#include <gtest/gtest.h>

#include "Values.h"
#include "devices/linux/bus/ProfileSecurity.h"

namespace wifi_profile::linux::bus {
namespace {

using ieee80211::Security;

ieee80211::Security ofProfile(BusValue::Map section) {
  return securityFromProfile(map({{"802-11-wireless-security", map(std::move(section))}}));
}

TEST(ProfileSecurity, OfAProfileWithoutTheSectionIsNone) {
  EXPECT_EQ(securityFromProfile(map({})), ieee80211::Security::none);
}

TEST(ProfileSecurity, IsTheKeyManagementOfAProfile) {
  EXPECT_EQ(ofProfile({{"key-mgmt", text("none")}}), ieee80211::Security::wep);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("ieee8021x")}}), ieee80211::Security::wep);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("owe")}}), ieee80211::Security::owe);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-psk")}}), ieee80211::Security::wpa2Personal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("sae")}}), ieee80211::Security::wpa3Personal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}}), ieee80211::Security::wpa2Enterprise);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap-suite-b-192")}}),
            ieee80211::Security::wpa3Enterprise);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("newer")}}), ieee80211::Security::unknown);
  EXPECT_EQ(ofProfile({{"key-mgmt", number(1)}}), ieee80211::Security::unknown);
  EXPECT_EQ(ofProfile({}), ieee80211::Security::unknown);
}

TEST(ProfileSecurity, IsTheFirstWpaWhereAProfileAllowsNoOther) {
  const BusValue first = list({text("wpa")});
  const BusValue both = list({text("wpa"), text("rsn")});
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-psk")}, {"proto", first}}),
            ieee80211::Security::wpaPersonal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-psk")}, {"proto", both}}),
            ieee80211::Security::wpa2Personal);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}, {"proto", first}}),
            ieee80211::Security::wpaEnterprise);
}

TEST(ProfileSecurity, IsWpa3WhereFramesMustBeProtectedInAnEnterprise) {
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}, {"pmf", number(3)}}),
            ieee80211::Security::wpa3Enterprise);
  EXPECT_EQ(ofProfile({{"key-mgmt", text("wpa-eap")}, {"pmf", number(2)}}),
            ieee80211::Security::wpa2Enterprise);
}

ieee80211::Security ofSupplicant(const char* methods, BusValue::Map more = {}) {
  more.emplace("key_mgmt", text(methods));
  return securityFromSupplicant(map(std::move(more)));
}

TEST(ProfileSecurity, IsReadFromTheWordsOfWpaSupplicant) {
  EXPECT_EQ(ofSupplicant("NONE"), ieee80211::Security::none);
  EXPECT_EQ(ofSupplicant("NONE", {{"wep_key0", text("*")}}), ieee80211::Security::wep);
  EXPECT_EQ(ofSupplicant("NONE", {{"wep_key3", text("*")}}), ieee80211::Security::wep);
  EXPECT_EQ(ofSupplicant("IEEE8021X"), ieee80211::Security::wep);
  EXPECT_EQ(ofSupplicant("OWE"), ieee80211::Security::owe);
  EXPECT_EQ(ofSupplicant("WPA-PSK"), ieee80211::Security::wpa2Personal);
  EXPECT_EQ(ofSupplicant("WPA-PSK", {{"proto", text("WPA")}}), ieee80211::Security::wpaPersonal);
  EXPECT_EQ(ofSupplicant("WPA-PSK", {{"proto", text("WPA RSN")}}),
            ieee80211::Security::wpa2Personal);
  EXPECT_EQ(ofSupplicant("SAE"), ieee80211::Security::wpa3Personal);
  EXPECT_EQ(ofSupplicant("WPA-PSK SAE"), ieee80211::Security::wpa2Wpa3Personal);
  EXPECT_EQ(ofSupplicant("WPA-EAP"), ieee80211::Security::wpa2Enterprise);
  EXPECT_EQ(ofSupplicant("WPA-EAP", {{"proto", text("WPA")}}), ieee80211::Security::wpaEnterprise);
  EXPECT_EQ(ofSupplicant("WPA-EAP-SUITE-B-192"), ieee80211::Security::wpa3Enterprise);
  EXPECT_EQ(ofSupplicant("WPS"), ieee80211::Security::unknown);
  EXPECT_EQ(ofSupplicant(""), ieee80211::Security::unknown);
}

TEST(ProfileSecurity, OfANetworkThatAllowsBothIsWhatItHas) {
  EXPECT_EQ(ofSupplicant("WPA-PSK WPA-EAP"), ieee80211::Security::wpa2Personal);
  EXPECT_EQ(ofSupplicant("WPA-PSK WPA-EAP", {{"eap", text("PEAP")}}),
            ieee80211::Security::wpa2Enterprise);
  EXPECT_EQ(ofSupplicant("WPA-PSK WPA-EAP", {{"identity", text("me")}}),
            ieee80211::Security::wpa2Enterprise);
}

TEST(ProfileSecurity, IsReadFromTheTypesOfIwd) {
  EXPECT_EQ(securityFromIwd("open"), ieee80211::Security::none);
  EXPECT_EQ(securityFromIwd("wep"), ieee80211::Security::wep);
  EXPECT_EQ(securityFromIwd("psk"), ieee80211::Security::wpa2Personal);
  EXPECT_EQ(securityFromIwd("8021x"), ieee80211::Security::wpa2Enterprise);
  EXPECT_EQ(securityFromIwd("hotspot"), ieee80211::Security::wpa2Enterprise);
  EXPECT_EQ(securityFromIwd("newer"), ieee80211::Security::unknown);
}

}  // namespace
}  // namespace wifi_profile::linux::bus
