#include <gtest/gtest.h>

#include "WorldTesting.h"

namespace wifi_profile::scenario {
namespace {

using ieee80211::Security;

TEST(WorldDevice, ReadsAddresses) {
  const auto all = facts(R"({"addresses":{"ipv4":["192.168.1.20"],"ipv6":["2001:db8::1","fe80::1"],
      "ipv4Gateway":"192.168.1.1","ipv6Gateway":"fe80::2","dnsServers":["192.168.1.1"],
      "systemDnsServers":["10.8.0.1"],"systemDnsThrough":"tun0"}})");
  EXPECT_EQ(*all.addresses,
            (facts::Addresses{.ipv4 = {"192.168.1.20"},
                              .ipv6 = {"2001:db8::1", "fe80::1"},
                              .ipv4Gateway = "192.168.1.1",
                              .ipv6Gateway = "fe80::2",
                              .dnsServers = std::vector<std::string>{"192.168.1.1"},
                              .systemDnsServers = std::vector<std::string>{"10.8.0.1"},
                              .systemDnsThrough = facts::OtherInterface{.name = "tun0"}}));
  EXPECT_EQ(*facts(R"({"addresses":{}})").addresses, facts::Addresses{});
  for (const char* address : {"", "1.2.3", "1.2.3.4.5", "1.2.3.256", "1.2.3.", "1..2.3", "a",
                              "1.2.3.4 ", "-1.2.3.4", "192.0.2.01"}) {
    EXPECT_EQ(faultIn(R"({"addresses":{"ipv4Gateway":")" + std::string(address) + R"("}})")
                  .find("/world/addresses/ipv4Gateway: found the text"),
              0U)
        << address;
  }
  EXPECT_EQ(faultIn(R"({"addresses":{"ipv6":["fe80::1","fe80::1%wlan0"]}})"),
            "/world/addresses/ipv6/1: found the text \"fe80::1%wlan0\", expected an IPv6 address "
            "such as \"2001:db8::1\"");
  EXPECT_NE(faultIn(R"({"addresses":{"ipv6Gateway":"192.0.2.1"}})"), "");
}

TEST(WorldDevice, ReadsTheActiveProfile) {
  using Method = facts::AddressMethod;
  const auto all = facts(R"({"activeProfile":{"ipv4":{"method":"manual","dnsServers":["192.0.2.1"],
      "ignoresNetworkDns":true,"hasExtraAddresses":true},"ipv6":{"method":"disabled"},
      "hasProxy":true,"metered":false,"captivePortalApi":"https://example.org/api"}})");
  EXPECT_EQ(*all.activeProfile,
            (facts::ActiveProfile{.ipv4 = {.method = Method::manual,
                                           .dnsServers = {"192.0.2.1"},
                                           .ignoresNetworkDns = true,
                                           .hasExtraAddresses = true},
                                  .ipv6 = {.method = Method::disabled,
                                           .dnsServers = {},
                                           .ignoresNetworkDns = false,
                                           .hasExtraAddresses = false},
                                  .hasProxy = true,
                                  .metered = false,
                                  .captivePortalApi = "https://example.org/api"}));
  EXPECT_EQ(*facts(R"({"activeProfile":{}})").activeProfile, facts::ActiveProfile{});
  const auto methodOf = [](const std::string& name) {
    return facts(R"({"activeProfile":{"ipv6":{"method":")" + name + R"("}}})")
        .activeProfile->ipv6.method;
  };
  EXPECT_EQ(methodOf("automatic"), Method::automatic);
  EXPECT_EQ(methodOf("linkLocal"), Method::linkLocal);
  EXPECT_EQ(methodOf("shared"), Method::shared);
  EXPECT_NE(faultIn(R"({"activeProfile":{"ipv4":{"method":"dhcp"}}})"), "");
}

TEST(WorldDevice, ReadsSavedNetworks) {
  const auto all = facts(R"({"savedNetworks":[{"ssid":"Home"},{"ssid":"Lab","security":"WEP",
      "hidden":true,"passpoint":true,"joinsByItself":false,"metered":true,
      "lastJoined":"2001-01-01T00:00:10Z","accessPoints":3},{"ssid":"New","lastJoined":null}]})");
  facts::SavedNetwork home;
  home.ssid = "Home";
  facts::SavedNetwork fresh;
  fresh.ssid = "New";
  EXPECT_EQ(*all.savedNetworks,
            (std::vector<facts::SavedNetwork>{home,
                                              {.ssid = "Lab",
                                               .security = ieee80211::Security::wep,
                                               .isHidden = true,
                                               .isPasspoint = true,
                                               .joinsByItself = false,
                                               .metered = true,
                                               .lastJoined = Date{10},
                                               .accessPoints = 3},
                                              fresh}));
  EXPECT_EQ(faultIn(R"({"savedNetworks":[{"ssid":"a","lastJoined":"soon"}]})")
                .find("/world/savedNetworks/0/lastJoined: "),
            0U);
  EXPECT_NE(faultIn(R"({"savedNetworks":[{"hidden":true}]})"), "");
}

TEST(WorldDevice, ReadsWhatTheDeviceHasBesides) {
  const auto all = facts(R"({"sessionProxy":{"source":"http_proxy in the environment"},
      "bluetooth":{"paired":9,"connected":2},
      "coexistence":{"takesTurns":true}})");
  EXPECT_EQ(all.sessionProxy->source, "http_proxy in the environment");
  EXPECT_EQ(*all.bluetooth, (facts::Bluetooth{.paired = 9, .connected = 2}));
  EXPECT_EQ(*all.coexistence, (facts::Coexistence{true}));
  EXPECT_NE(faultIn(R"({"sessionProxy":{}})"), "");
  EXPECT_NE(faultIn(R"({"bluetooth":{"paired":-1}})"), "");
  EXPECT_NE(faultIn(R"({"coexistence":{}})"), "");
}

}  // namespace
}  // namespace wifi_profile::scenario
