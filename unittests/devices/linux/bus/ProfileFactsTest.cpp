// NetworkManager's dictionaries, and what they mean.

#include <cstring>
#include <gtest/gtest.h>

#include "Values.h"
#include "devices/linux/bus/ProfileFacts.h"

namespace wifi_profile::linux::bus {
namespace {

using facts::AddressMethod;
using facts::AddressSettings;

BusValue sections(BusValue ipv4, BusValue ipv6 = map({{"method", text("auto")}})) {
  return map({{"ipv4", std::move(ipv4)}, {"ipv6", std::move(ipv6)}});
}

std::optional<facts::AddressSettings> ipv4From(BusValue section) {
  const auto profile = activeProfileFrom({sections(std::move(section)), {}, {}});
  return profile ? std::optional(profile->ipv4) : std::nullopt;
}

struct MethodRow {
  const char* text;
  std::optional<facts::AddressMethod> method;
};

class Methods : public testing::TestWithParam<MethodRow> {};

TEST_P(Methods, AreKnownByTheirNames) {
  const auto settings = ipv4From(map({{"method", text(GetParam().text)}}));
  ASSERT_EQ(settings.has_value(), GetParam().method.has_value());
  if (settings) {
    EXPECT_EQ(settings->method, *GetParam().method);
  }
}

INSTANTIATE_TEST_SUITE_P(All, Methods,
                         testing::Values(MethodRow{"auto", facts::AddressMethod::automatic},
                                         MethodRow{"dhcp", facts::AddressMethod::automatic},
                                         MethodRow{"ignore", facts::AddressMethod::automatic},
                                         MethodRow{"manual", facts::AddressMethod::manual},
                                         MethodRow{"link-local", facts::AddressMethod::linkLocal},
                                         MethodRow{"shared", facts::AddressMethod::shared},
                                         MethodRow{"disabled", facts::AddressMethod::disabled},
                                         MethodRow{"", std::nullopt},
                                         MethodRow{"newer", std::nullopt}));

TEST(ActiveProfileFacts, SettingsThatAreNotThereAreNotTold) {
  EXPECT_FALSE(activeProfileFrom({}));
  EXPECT_FALSE(activeProfileFrom({text("settings"), {}, {}}));
  EXPECT_FALSE(activeProfileFrom({map({{"ipv4", map({{"method", text("auto")}})}}), {}, {}}));
  EXPECT_EQ(activeProfileFrom({}).error().reason, Reason::notTold);
}

TEST(ActiveProfileFacts, ServersOfAnyFormAreTexts) {
  // The number's bytes in memory are the address.
  const std::uint32_t inMemoryOrder = [] {
    std::uint32_t value = 0;
    const unsigned char address[] = {192, 0, 2, 53};
    std::memcpy(&value, address, sizeof value);
    return value;
  }();
  const std::string ipv6("\x20\x01\x0d\xb8\0\0\0\0\0\0\0\0\0\0\0\x35", 16);
  const auto profile = activeProfileFrom(
      {sections(map({{"method", text("auto")}, {"dns", list({number(inMemoryOrder)})}}),
                map({{"method", text("auto")}, {"dns", list({bytes(ipv6)})}})),
       {},
       {}});
  ASSERT_TRUE(profile);
  EXPECT_EQ(profile->ipv4.dnsServers, std::vector<std::string>{"192.0.2.53"});
  EXPECT_EQ(profile->ipv6.dnsServers, std::vector<std::string>{"2001:db8::35"});
}

TEST(ActiveProfileFacts, TheNewFormOfServersIsTakenBeforeTheOldOne) {
  const auto settings = ipv4From(map({{"method", text("auto")},
                                      {"dns", list({number(1)})},
                                      {"dns-data", list({text("192.0.2.1"), text("192.0.2.2")})},
                                      {"ignore-auto-dns", flag(true)}}));
  ASSERT_TRUE(settings);
  EXPECT_EQ(settings->dnsServers, (std::vector<std::string>{"192.0.2.1", "192.0.2.2"}));
  EXPECT_TRUE(settings->ignoresNetworkDns);
}

TEST(ActiveProfileFacts, ServersThatAreNoneAreLeftOutAndThereAreNoMoreThan64) {
  BusValue::List servers{text(""),   bytes("short"), number(-1), number(std::int64_t{1} << 40),
                         flag(true), BusValue()};
  for (int count = 0; count < 100; ++count) servers.push_back(text("192.0.2.1"));
  const auto settings =
      ipv4From(map({{"method", text("auto")}, {"dns-data", list(std::move(servers))}}));
  ASSERT_TRUE(settings);
  EXPECT_EQ(settings->dnsServers, std::vector<std::string>(64, "192.0.2.1"));
}

TEST(ActiveProfileFacts, AddressesOfItsOwnAreExtraOnlyBesidesTheNetworks) {
  const BusValue addresses = list({map({{"address", text("192.0.2.9")}})});
  const auto extra = [&](const char* method, const char* key, const BusValue& value) {
    return ipv4From(map({{"method", text(method)}, {key, value}}))->hasExtraAddresses;
  };
  EXPECT_TRUE(extra("auto", "address-data", addresses));
  EXPECT_TRUE(extra("auto", "addresses", addresses));
  EXPECT_TRUE(extra("auto", "gateway", text("192.0.2.1")));
  EXPECT_FALSE(extra("auto", "gateway", text("")));
  EXPECT_FALSE(extra("manual", "address-data", addresses));
}

bool proxyOf(BusValue proxy) {
  BusValue settings = map({{"ipv4", map({{"method", text("auto")}})},
                           {"ipv6", map({{"method", text("auto")}})},
                           {"proxy", std::move(proxy)}});
  return activeProfileFrom({std::move(settings), {}, {}})->hasProxy;
}

TEST(ActiveProfileFacts, AProxyIsAScriptThatIsInUse) {
  EXPECT_TRUE(proxyOf(map({{"method", number(1)}, {"pac-url", text("http://proxy.test/pac")}})));
  EXPECT_TRUE(proxyOf(map({{"method", number(1)}, {"pac-script", text("function")}})));
  EXPECT_TRUE(proxyOf(map({{"method", number(1)}, {"pac-script", BusValue()}})));
  EXPECT_FALSE(proxyOf(map({{"method", number(1)}})));
  EXPECT_FALSE(proxyOf(map({{"method", number(0)}, {"pac-url", text("http://proxy.test/pac")}})));
  EXPECT_FALSE(proxyOf(map({{"pac-url", text("http://proxy.test/pac")}})));
  EXPECT_FALSE(proxyOf(text("proxy")));
}

std::optional<bool> meteredOf(BusValue device, BusValue connection, BusValue dhcp = {}) {
  BusValue settings = map({{"ipv4", map({{"method", text("auto")}})},
                           {"ipv6", map({{"method", text("auto")}})},
                           {"connection", map({{"metered", std::move(connection)}})}});
  return activeProfileFrom(
             {std::move(settings), map({{"Metered", std::move(device)}}), std::move(dhcp)})
      ->metered;
}

TEST(ActiveProfileFacts, MeteredIsWhatTheDeviceSaysElseTheProfileElseTheNetwork) {
  EXPECT_EQ(meteredOf(number(1), {}), true);
  EXPECT_EQ(meteredOf(number(2), {}), false);
  EXPECT_EQ(meteredOf(number(3), {}), true);
  EXPECT_EQ(meteredOf(number(4), number(1)), false);
  EXPECT_EQ(meteredOf(number(0), number(1)), true);
  EXPECT_EQ(meteredOf(number(0), number(0)), std::nullopt);
  EXPECT_EQ(meteredOf(number(99), number(-1)), std::nullopt);
  EXPECT_EQ(meteredOf(text("yes"), text("yes")), std::nullopt);
  const BusValue telephone = map({{"vendor_encapsulated_options", text("ANDROID_METERED")}});
  EXPECT_EQ(meteredOf({}, {}, telephone), true);
  EXPECT_EQ(meteredOf(number(2), {}, telephone), false);
}

TEST(CaptivePortalApi, IsTheOptionUnderAnyOfItsNames) {
  for (const char* const key :
       {"captive_portal", "v4_captive_portal", "default_url", "unknown_114", "option_114"}) {
    EXPECT_EQ(captivePortalApiFrom(map({{key, text("https://portal.test/")}})),
              "https://portal.test/")
        << key;
  }
}

TEST(CaptivePortalApi, IsNotThereWhereItIsEmptyTooLongOrNoText) {
  EXPECT_EQ(captivePortalApiFrom(map({{"captive_portal", text("")}})), std::nullopt);
  EXPECT_EQ(captivePortalApiFrom(map({{"captive_portal", text(std::string(2049, 'x'))}})),
            std::nullopt);
  EXPECT_EQ(captivePortalApiFrom(map({{"captive_portal", number(1)}})), std::nullopt);
  EXPECT_EQ(captivePortalApiFrom({}), std::nullopt);
}

TEST(UnixTime, BecomesADateWhereItIsOne) {
  EXPECT_EQ(dateFromUnixTime(978'307'200), Date{0});
  EXPECT_EQ(dateFromUnixTime(1), Date{1.0 - 978'307'200.0});
  EXPECT_EQ(dateFromUnixTime(0), std::nullopt);
  EXPECT_EQ(dateFromUnixTime(-1), std::nullopt);
  EXPECT_TRUE(dateFromUnixTime(253'402'300'799));
  EXPECT_EQ(dateFromUnixTime(253'402'300'800), std::nullopt);
}

BusValue wifi(BusValue::Map wireless, BusValue::Map connection = {}) {
  connection.emplace("type", text("802-11-wireless"));
  wireless.emplace("ssid", bytes("Home"));
  return map(
      {{"connection", map(std::move(connection))}, {"802-11-wireless", map(std::move(wireless))}});
}

TEST(SavedNetworkFacts, AreRead) {
  const auto network = savedNetworkFrom(wifi(
      {{"hidden", flag(true)}, {"seen-bssids", list({text("a"), text("b")})}},
      {{"autoconnect", flag(false)}, {"metered", number(1)}, {"timestamp", number(978'307'260)}}));
  ASSERT_TRUE(network);
  facts::SavedNetwork expected;
  expected.ssid = "Home";
  expected.security = ieee80211::Security::none;
  expected.isHidden = true;
  expected.joinsByItself = false;
  expected.metered = true;
  expected.lastJoined = Date{60};
  expected.accessPoints = 2;
  EXPECT_EQ(*network, expected);
}

TEST(SavedNetworkFacts, ThatAreMissingAreAsNetworkManagerTakesThem) {
  const auto network = savedNetworkFrom(wifi({}));
  ASSERT_TRUE(network);
  EXPECT_TRUE(network->joinsByItself);
  EXPECT_FALSE(network->isHidden);
  EXPECT_EQ(network->lastJoined, std::nullopt);
  EXPECT_EQ(network->metered, std::nullopt);
  EXPECT_EQ(network->accessPoints, 0);
}

TEST(SavedNetworkFacts, OnlyProfilesForJoiningCount) {
  EXPECT_FALSE(savedNetworkFrom({}));
  EXPECT_FALSE(savedNetworkFrom(map({{"connection", map({{"type", text("802-3-ethernet")}})}})));
  EXPECT_FALSE(savedNetworkFrom(wifi({{"mode", text("ap")}})));
  EXPECT_FALSE(savedNetworkFrom(wifi({{"ssid", bytes("")}})));
  EXPECT_FALSE(savedNetworkFrom(wifi({{"ssid", bytes(std::string(33, 'x'))}})));
  EXPECT_FALSE(savedNetworkFrom(wifi({{"ssid", text("Home")}})));
  EXPECT_TRUE(savedNetworkFrom(wifi({{"ssid", bytes(std::string(32, '\xff'))}})));
}

}  // namespace
}  // namespace wifi_profile::linux::bus
