// iwd and wpa_supplicant, and who is asked where.

#include "BusFixture.h"
#include "Values.h"
#include "devices/linux/bus/ConnectionManager.h"
#include "devices/linux/bus/Iwd.h"
#include "devices/linux/bus/Supplicant.h"

namespace wifi_profile::linux::bus {
namespace {

using sdbus::ObjectPath;
using sdbus::Variant;
using ManagerKind = ConnectionManager::Kind;

Variant words(const char* value) { return Variant(std::string(value)); }

TEST(SavedNetworksOfIwd, AreTheKnownNetworksWithAName) {
  const auto known = [](BusValue::Map properties) {
    return map({{"net.connman.iwd.KnownNetwork", map(std::move(properties))}});
  };
  const auto networks = savedNetworksFromIwd(
      map({{"/1", known({{"Name", text("Home")},
                         {"Type", text("psk")},
                         {"Hidden", flag(true)},
                         {"AutoConnect", flag(false)},
                         {"LastConnectedTime", text("2001-01-01T00:01:00Z")}})},
           {"/2", known({{"Name", text("Roaming")}, {"Type", text("hotspot")}})},
           {"/3", known({{"Name", text("")}})},
           {"/4", known({{"Name", text(std::string(33, 'x'))}})},
           {"/5", known({{"Name", number(5)}})},
           {"/6", text("nothing")},
           {"/7", map({{"net.connman.iwd.Device", map({{"Name", text("wlan0")}})}})}}));
  ASSERT_EQ(networks.size(), 2U);
  EXPECT_EQ(networks[0].ssid, "Home");
  EXPECT_EQ(networks[0].security, ieee80211::Security::wpa2Personal);
  EXPECT_TRUE(networks[0].isHidden);
  EXPECT_FALSE(networks[0].joinsByItself);
  EXPECT_EQ(networks[0].lastJoined, Date{60});
  EXPECT_TRUE(networks[1].isPasspoint);
  EXPECT_TRUE(networks[1].joinsByItself);
  EXPECT_EQ(networks[1].lastJoined, std::nullopt);
}

std::optional<std::string> ssidOf(const char* written) {
  const auto network = savedNetworkFromSupplicant(map({{"ssid", text(written)}}));
  return network ? std::optional(network->ssid) : std::nullopt;
}

TEST(SavedNetworksOfWpaSupplicant, HaveTheirNamesBetweenQuotesOrInHexadecimal) {
  EXPECT_EQ(ssidOf("\"Home\""), "Home");
  EXPECT_EQ(ssidOf("\"a \" b\""), "a \" b");
  EXPECT_EQ(ssidOf("486f6D65"), "Home");
  EXPECT_EQ(ssidOf("\"\""), std::nullopt);
  EXPECT_EQ(ssidOf("\""), std::nullopt);
  EXPECT_EQ(ssidOf(""), std::nullopt);
  EXPECT_EQ(ssidOf("4"), std::nullopt);
  EXPECT_EQ(ssidOf("4g"), std::nullopt);
  EXPECT_EQ(ssidOf("-1"), std::nullopt);
  EXPECT_EQ(ssidOf("\"123456789012345678901234567890123\""), std::nullopt);
  EXPECT_EQ(savedNetworkFromSupplicant(map({{"ssid", number(1)}})), std::nullopt);
}

TEST(SavedNetworksOfWpaSupplicant, AreHiddenAndSwitchedOffAsWritten) {
  const auto network = savedNetworkFromSupplicant(
      map({{"ssid", text("\"Home\"")}, {"scan_ssid", text("1")}, {"disabled", text("1")}}));
  EXPECT_TRUE(network->isHidden);
  EXPECT_FALSE(network->joinsByItself);
  const auto usual = savedNetworkFromSupplicant(
      map({{"ssid", text("\"Home\"")}, {"scan_ssid", text("0")}, {"disabled", text("0")}}));
  EXPECT_FALSE(usual->isHidden);
  EXPECT_TRUE(usual->joinsByItself);
}

class ConnectionManagerTest : public BusFixture {
 protected:
  // NetworkManager, in which wlan0 has this state.
  std::unique_ptr<FakeService> networkManager(std::uint32_t state) {
    auto service =
        std::make_unique<FakeService>(daemon_.address(), "org.freedesktop.NetworkManager");
    service->method("/org/freedesktop/NetworkManager", "org.freedesktop.NetworkManager",
                    "GetDeviceByIpIface", [](const std::string&) { return ObjectPath("/device"); });
    service->property("/device", "org.freedesktop.NetworkManager.Device", "State", state);
    service->property("/device", "org.freedesktop.NetworkManager.Device", "ActiveConnection",
                      ObjectPath("/"));
    service->start();
    return service;
  }

  std::unique_ptr<FakeService> iwd(const char* scanError = nullptr) {
    auto service = std::make_unique<FakeService>(daemon_.address(), "net.connman.iwd");
    service->addObjectManager();
    service->property("/station", "net.connman.iwd.Device", "Name", std::string("wlan0"));
    service->property("/known", "net.connman.iwd.KnownNetwork", "Name", std::string("Of iwd"));
    service->method("/station", "net.connman.iwd.Station", "Scan", [scanError] {
      if (scanError) throw sdbus::Error(scanError, "no");
    });
    service->start();
    return service;
  }

  std::unique_ptr<FakeService> supplicant(const char* scanError = nullptr) {
    constexpr auto kInterface = "fi.w1.wpa_supplicant1.Interface";
    constexpr auto kNetwork = "fi.w1.wpa_supplicant1.Network";
    auto service = std::make_unique<FakeService>(daemon_.address(), "fi.w1.wpa_supplicant1");
    service->method("/fi/w1/wpa_supplicant1", "fi.w1.wpa_supplicant1", "GetInterface",
                    [](const std::string& interface) {
                      if (interface == "wlan0") return ObjectPath("/interface");
                      throw sdbus::Error("fi.w1.wpa_supplicant1.InterfaceUnknown");
                    });
    service->property("/interface", kInterface, "Networks",
                      std::vector<ObjectPath>{"/network/0", "/network/gone", "/network/1"});
    service->property("/network/0", kNetwork, "Properties",
                      Properties{{"ssid", words("\"First\"")}, {"key_mgmt", words("NONE")}});
    service->property("/network/1", kNetwork, "Properties",
                      Properties{{"ssid", words("5365636f6e64")}, {"key_mgmt", words("SAE")}});
    service->method("/interface", kInterface, "Scan", [scanError](const Properties& options) {
      EXPECT_EQ(options.at("Type").get<std::string>(), "active");
      if (scanError) throw sdbus::Error(scanError, "no");
    });
    service->start();
    return service;
  }

  ConnectionManager manager_{*bus_};
};

TEST_F(ConnectionManagerTest, NetworkManagerIsAskedFirst) {
  const auto first = networkManager(100);
  const auto second = iwd();
  const auto third = supplicant();
  EXPECT_EQ(manager_.kind("wlan0", deadline()), Result<ManagerKind>(ManagerKind::networkManager));
  EXPECT_EQ(manager_.activeProfile("wlan0", deadline()).error().reason, Reason::notJoined);
}

TEST_F(ConnectionManagerTest, IwdIsAskedWhereNetworkManagerLeavesTheInterfaceAlone) {
  const auto first = networkManager(10);
  const auto second = iwd();
  const auto third = supplicant();
  EXPECT_EQ(manager_.kind("wlan0", deadline()), Result<ManagerKind>(ManagerKind::iwd));
}

TEST_F(ConnectionManagerTest, WpaSupplicantIsAskedWhereNobodyElseIs) {
  const auto only = supplicant();
  EXPECT_EQ(manager_.kind("wlan0", deadline()), Result<ManagerKind>(ManagerKind::supplicant));
}

TEST_F(ConnectionManagerTest, WhoManagesIsFoundOutOnceAndAnewForAnotherInterface) {
  {
    const auto first = iwd();
    EXPECT_EQ(manager_.kind("wlan0", deadline()), Result<ManagerKind>(ManagerKind::iwd));
  }
  EXPECT_EQ(manager_.kind("wlan0", deadline()), Result<ManagerKind>(ManagerKind::iwd));
  EXPECT_EQ(manager_.kind("wlan1", deadline()).error().reason, Reason::noService);
}

TEST_F(ConnectionManagerTest, ANetworkManagerThatNobodyElseStandsInForIsNamed) {
  const auto only = networkManager(10);
  const auto kind = manager_.kind("wlan0", deadline());
  EXPECT_EQ(kind.error().reason, Reason::noService);
  EXPECT_NE(kind.error().message.find("does not take care of wlan0"), std::string::npos);
}

TEST_F(ConnectionManagerTest, WithoutAnyManagerEverythingIsNoService) {
  EXPECT_EQ(manager_.activeProfile("wlan0", deadline()).error().reason, Reason::noService);
  EXPECT_EQ(manager_.dnsServers("wlan0", deadline()).error().reason, Reason::noService);
  EXPECT_EQ(manager_.savedNetworks("wlan0", deadline()).error().reason, Reason::noService);
  EXPECT_EQ(manager_.lastScan("wlan0", deadline()).error().reason, Reason::noService);
  EXPECT_EQ(manager_.requestScan("wlan0", deadline()).error().reason, Reason::noService);
  EXPECT_EQ(manager_.isRadioOn("wlan0", deadline()).error().reason, Reason::noService);
  EXPECT_EQ(manager_.setRadioOn("wlan0", true, deadline()).error().reason, Reason::noService);
}

TEST_F(ConnectionManagerTest, WithoutABusEverythingIsNoService) {
  const auto none = Bus::at("unix:path=/nonexistent/socket");
  const auto kind = ConnectionManager(*none).kind("wlan0", deadline());
  EXPECT_EQ(kind.error().reason, Reason::noService);
  EXPECT_NE(kind.error().message.find("D-Bus"), std::string::npos);
}

TEST_F(ConnectionManagerTest, ANetworkManagerThatIsSilentIsNotReplacedByAnother) {
  FakeService silent(daemon_.address(), "org.freedesktop.NetworkManager");
  silent.silentMethod<ObjectPath, std::string>(
      "/org/freedesktop/NetworkManager", "org.freedesktop.NetworkManager", "GetDeviceByIpIface");
  silent.start();
  const auto second = iwd();
  EXPECT_EQ(manager_.kind("wlan0", shortDeadline()).error().reason, Reason::tookTooLong);
}

TEST_F(ConnectionManagerTest, IwdTellsNetworksAndScansButNotAddresses) {
  const auto service = iwd();
  const auto networks = manager_.savedNetworks("wlan0", deadline());
  ASSERT_TRUE(networks) << networks.error().message;
  ASSERT_EQ(networks->size(), 1U);
  EXPECT_EQ(networks->front().ssid, "Of iwd");
  EXPECT_EQ(manager_.requestScan("wlan0", deadline()), Result<ScanStart>(ScanStart::started));
  const auto profile = manager_.activeProfile("wlan0", deadline());
  EXPECT_EQ(profile.error(),
            (Error{Reason::notTold,
                   "iwd does not say how addresses were set up; only NetworkManager "
                   "does."}));
  EXPECT_EQ(manager_.dnsServers("wlan0", deadline()).error().reason, Reason::notTold);
  EXPECT_EQ(manager_.lastScan("wlan0", deadline()).error().reason, Reason::notTold);
  EXPECT_EQ(manager_.isRadioOn("wlan0", deadline()).error().reason, Reason::notSupported);
  EXPECT_EQ(manager_.setRadioOn("wlan0", true, deadline()).error().reason, Reason::notSupported);
}

TEST_F(ConnectionManagerTest, AScanOfIwdsThatIsUnderWayIsTooSoon) {
  const auto service = iwd("net.connman.iwd.InProgress");
  EXPECT_EQ(manager_.requestScan("wlan0", deadline()), Result<ScanStart>(ScanStart::tooSoon));
}

TEST_F(ConnectionManagerTest, IwdWithoutAStationOnTheInterfaceDoesNotManageIt) {
  const auto service = iwd();
  EXPECT_EQ(manager_.kind("wlan1", deadline()).error().reason, Reason::noService);
}

TEST_F(ConnectionManagerTest, WpaSupplicantTellsNetworksAndScans) {
  const auto service = supplicant();
  const auto networks = manager_.savedNetworks("wlan0", deadline());
  ASSERT_TRUE(networks) << networks.error().message;
  ASSERT_EQ(networks->size(), 2U);
  EXPECT_EQ(networks->at(0).ssid, "First");
  EXPECT_EQ(networks->at(1).ssid, "Second");
  EXPECT_EQ(networks->at(1).security, ieee80211::Security::wpa3Personal);
  EXPECT_EQ(manager_.requestScan("wlan0", deadline()), Result<ScanStart>(ScanStart::started));
  EXPECT_EQ(manager_.activeProfile("wlan0", deadline()).error().reason, Reason::notTold);
}

TEST_F(ConnectionManagerTest, AScanThatWpaSupplicantRejectsIsTooSoon) {
  const auto service = supplicant("fi.w1.wpa_supplicant1.Interface.ScanError");
  EXPECT_EQ(manager_.requestScan("wlan0", deadline()), Result<ScanStart>(ScanStart::tooSoon));
}

TEST_F(ConnectionManagerTest, WpaSupplicantDoesNotManageOtherInterfaces) {
  const auto service = supplicant();
  EXPECT_EQ(manager_.kind("wlan1", deadline()).error().reason, Reason::noService);
}

}  // namespace
}  // namespace wifi_profile::linux::bus
