// NetworkManager as it should be, and as it should not.

#include <future>

#include "BusFixture.h"
#include "devices/linux/bus/NetworkManager.h"
#include "devices/linux/bus/ProfileFacts.h"

namespace wifi_profile::linux::bus {
namespace {

using namespace std::chrono_literals;
using sdbus::ObjectPath;
using sdbus::Variant;

constexpr auto kManagerName = "org.freedesktop.NetworkManager";
constexpr auto kRoot = "/org/freedesktop/NetworkManager";
constexpr auto kManagedDevice = "org.freedesktop.NetworkManager.Device";
constexpr auto kWireless = "org.freedesktop.NetworkManager.Device.Wireless";
constexpr auto kActive = "org.freedesktop.NetworkManager.Connection.Active";
constexpr auto kSettings = "org.freedesktop.NetworkManager.Settings";
constexpr auto kSettingsPath = "/org/freedesktop/NetworkManager/Settings";
constexpr auto kProfile = "org.freedesktop.NetworkManager.Settings.Connection";
constexpr auto kDevicePath = "/device/1";
constexpr auto kActivePath = "/active/1";
constexpr auto kProfilePath = "/profile/1";

std::vector<std::uint8_t> ssidBytes(const std::string& text) { return {text.begin(), text.end()}; }

Sections wifiProfile(const std::string& ssid) {
  return {{"connection", {{"type", Variant(std::string("802-11-wireless"))}}},
          {"802-11-wireless", {{"ssid", Variant(ssidBytes(ssid))}}},
          {"ipv4", {{"method", Variant(std::string("auto"))}}},
          {"ipv6", {{"method", Variant(std::string("auto"))}}}};
}

// A manager with wlan0, joined by one profile. A test adds what else there is before `start`.
class FakeManager : public FakeService {
 public:
  explicit FakeManager(const std::string& address) : FakeService(address, kManagerName) {
    method(kRoot, kManagerName, "GetDeviceByIpIface", [](const std::string& interface) {
      if (interface != "wlan0") throw sdbus::Error("org.freedesktop.NetworkManager.UnknownDevice");
      return ObjectPath(kDevicePath);
    });
  }
  void joined(const Sections& settings) {
    property(kDevicePath, kManagedDevice, "State", std::uint32_t{100});
    property(kDevicePath, kManagedDevice, "ActiveConnection", ObjectPath(kActivePath));
    property(kActivePath, kActive, "Connection", ObjectPath(kProfilePath));
    method(kProfilePath, kProfile, "GetSettings", [settings] { return settings; });
  }
  void list(const std::vector<ObjectPath>& profiles) {
    method(kSettingsPath, kSettings, "ListConnections", [profiles] { return profiles; });
  }
};

class NetworkManagerTest : public BusFixture {
 protected:
  FakeManager service_{daemon_.address()};
  NetworkManager manager_{*bus_};
};

TEST_F(NetworkManagerTest, TellsTheProfileThatTheInterfaceIsJoinedWith) {
  Sections settings = wifiProfile("Home");
  settings["ipv4"] = {{"method", Variant(std::string("manual"))},
                      {"dns-data", Variant(std::vector<std::string>{"192.0.2.1"})}};
  service_.joined(settings);
  service_.property(kDevicePath, kManagedDevice, "Metered", std::uint32_t{4});
  service_.property(kDevicePath, kManagedDevice, "Dhcp4Config", ObjectPath("/dhcp/1"));
  service_.property("/dhcp/1", "org.freedesktop.NetworkManager.DHCP4Config", "Options",
                    Properties{{"captive_portal", Variant(std::string("https://portal.test/"))}});
  service_.start();
  const auto profile = manager_.activeProfile("wlan0", deadline());
  ASSERT_TRUE(profile) << profile.error().message;
  EXPECT_EQ(profile->ipv4.method, facts::AddressMethod::manual);
  EXPECT_EQ(profile->ipv4.dnsServers, std::vector<std::string>{"192.0.2.1"});
  EXPECT_EQ(profile->ipv6.method, facts::AddressMethod::automatic);
  EXPECT_EQ(profile->metered, false);
  EXPECT_EQ(profile->captivePortalApi, "https://portal.test/");
}

TEST_F(NetworkManagerTest, MissingPropertiesLeaveOutOnlyWhatTheyTell) {
  service_.joined(wifiProfile("Home"));
  service_.start();
  const auto profile = manager_.activeProfile("wlan0", deadline());
  ASSERT_TRUE(profile);
  EXPECT_EQ(*profile, facts::ActiveProfile{});
}

TEST_F(NetworkManagerTest, AnInterfaceWithoutConnectionIsNotJoined) {
  service_.property(kDevicePath, kManagedDevice, "ActiveConnection", ObjectPath("/"));
  service_.start();
  EXPECT_EQ(manager_.activeProfile("wlan0", deadline()).error().reason, Reason::notJoined);
  EXPECT_EQ(manager_.dnsServers("wlan0", deadline()).error().reason, Reason::notJoined);
}

TEST_F(NetworkManagerTest, PropertiesOfWrongTypesAreUnknown) {
  service_.property(kDevicePath, kManagedDevice, "ActiveConnection", std::uint32_t{7});
  service_.property(kDevicePath, kManagedDevice, "State", std::string("connected"));
  service_.property(kDevicePath, kWireless, "LastScan", std::string("yesterday"));
  service_.property(kRoot, kManagerName, "WirelessEnabled", std::string("yes"));
  service_.start();
  EXPECT_EQ(manager_.activeProfile("wlan0", deadline()).error().reason, Reason::notJoined);
  EXPECT_EQ(manager_.manages("wlan0", deadline()), Result<bool>(false));
  EXPECT_EQ(manager_.lastScan("wlan0", deadline()).error().reason, Reason::failed);
  EXPECT_EQ(manager_.isWirelessEnabled(deadline()).error().reason, Reason::failed);
}

TEST_F(NetworkManagerTest, AConnectionOfAWrongTypeIsUnknown) {
  service_.property(kDevicePath, kManagedDevice, "ActiveConnection", ObjectPath(kActivePath));
  service_.property(kActivePath, kActive, "Connection", std::uint32_t{7});
  service_.start();
  EXPECT_EQ(manager_.activeProfile("wlan0", deadline()).error().reason, Reason::failed);
}

TEST_F(NetworkManagerTest, SettingsOfAWrongTypeAreNotTold) {
  Sections settings = wifiProfile("Home");
  settings["ipv4"]["method"] = Variant(std::uint32_t{1});
  service_.joined(settings);
  service_.start();
  EXPECT_EQ(manager_.activeProfile("wlan0", deadline()).error().reason, Reason::notTold);
}

TEST_F(NetworkManagerTest, AnInterfaceThatItDoesNotKnowIsNoHardware) {
  service_.start();
  EXPECT_EQ(manager_.activeProfile("wlan9", deadline()).error().reason, Reason::noHardware);
  EXPECT_EQ(manager_.manages("wlan9", deadline()), Result<bool>(false));
}

TEST_F(NetworkManagerTest, AnInterfaceThatIsLeftAloneIsNotManaged) {
  service_.property(kDevicePath, kManagedDevice, "State", std::uint32_t{10});
  service_.start();
  EXPECT_EQ(manager_.manages("wlan0", deadline()), Result<bool>(false));
}

TEST_F(NetworkManagerTest, NotRunningIsNoServiceAndNamesTheRemedy) {
  const auto profile = manager_.activeProfile("wlan0", deadline());
  EXPECT_EQ(profile.error().reason, Reason::noService);
  EXPECT_NE(profile.error().message.find("NetworkManager is not running"), std::string::npos);
  EXPECT_NE(profile.error().message.find("systemctl start NetworkManager"), std::string::npos);
}

TEST_F(NetworkManagerTest, TellsTheServersOfTheLink) {
  service_.property(kDevicePath, kManagedDevice, "Ip4Config", ObjectPath("/ip4/1"));
  service_.property(kDevicePath, kManagedDevice, "Ip6Config", ObjectPath("/ip6/1"));
  service_.property("/ip4/1", "org.freedesktop.NetworkManager.IP4Config", "NameserverData",
                    std::vector<Properties>{{{"address", Variant(std::string("192.0.2.1"))}},
                                            {{"address", Variant(std::string("192.0.2.2"))}}});
  service_.property("/ip6/1", "org.freedesktop.NetworkManager.IP6Config", "Nameservers",
                    std::vector<std::vector<std::uint8_t>>{
                        {0x20, 1, 0xd, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}});
  service_.start();
  const auto servers = manager_.dnsServers("wlan0", deadline());
  ASSERT_TRUE(servers);
  EXPECT_EQ(*servers, (std::vector<std::string>{"192.0.2.1", "192.0.2.2", "2001:db8::1"}));
}

TEST_F(NetworkManagerTest, TellsTheServersOfTheOneIpVersionThatIsThere) {
  service_.property(kDevicePath, kManagedDevice, "Ip4Config", ObjectPath("/ip4/1"));
  service_.property(kDevicePath, kManagedDevice, "Ip6Config", ObjectPath("/"));
  service_.property("/ip4/1", "org.freedesktop.NetworkManager.IP4Config", "NameserverData",
                    std::vector<Properties>{{{"address", Variant(std::string("192.0.2.1"))}}});
  service_.start();
  const auto servers = manager_.dnsServers("wlan0", deadline());
  ASSERT_TRUE(servers);
  EXPECT_EQ(*servers, std::vector<std::string>{"192.0.2.1"});
}

TEST_F(NetworkManagerTest, TellsThatALinkHasNoServers) {
  service_.property(kDevicePath, kManagedDevice, "Ip4Config", ObjectPath("/ip4/1"));
  service_.property(kDevicePath, kManagedDevice, "Ip6Config", ObjectPath("/"));
  service_.property("/ip4/1", "org.freedesktop.NetworkManager.IP4Config", "NameserverData",
                    std::vector<Properties>{});
  service_.start();
  const auto servers = manager_.dnsServers("wlan0", deadline());
  ASSERT_TRUE(servers);
  EXPECT_EQ(*servers, std::vector<std::string>());
}

TEST_F(NetworkManagerTest, DoesNotTellThatALinkHasNoServersWhereHalfOfItIsNotTold) {
  service_.property(kDevicePath, kManagedDevice, "Ip4Config",
                    ObjectPath("/ip4/1"));  // which is not there
  service_.property(kDevicePath, kManagedDevice, "Ip6Config", ObjectPath("/ip6/1"));
  service_.property("/ip6/1", "org.freedesktop.NetworkManager.IP6Config", "Nameservers",
                    std::vector<std::vector<std::uint8_t>>{});
  service_.start();
  EXPECT_FALSE(manager_.dnsServers("wlan0", deadline()));
}

TEST_F(NetworkManagerTest, SixtyProfilesAreAskedForAtOnce) {
  // Answers when all have been asked for: one question at a time would never be answered.
  std::vector<ObjectPath> paths;
  auto all = std::make_shared<std::vector<sdbus::Result<Sections>>>();
  for (int number = 0; number < 60; ++number) {
    const std::string path = "/profile/" + std::to_string(number);
    paths.emplace_back(path);
    service_.method(path, kProfile, "GetSettings", [all](sdbus::Result<Sections>&& result) {
      auto& kept = *all;
      kept.push_back(std::move(result));
      if (kept.size() < 60) return;
      for (std::size_t index = 0; index < kept.size(); ++index) {
        kept[index].returnResults(wifiProfile("Trip " + std::to_string(index)));
      }
    });
  }
  all.reset();  // it belongs to the methods
  service_.list(paths);
  service_.start();
  const auto networks = manager_.savedNetworks(deadline());
  ASSERT_TRUE(networks) << networks.error().message;
  ASSERT_EQ(networks->size(), 60U);
  EXPECT_EQ(networks->front().ssid, "Trip 0");
  EXPECT_EQ(networks->back().ssid, "Trip 59");
}

TEST_F(NetworkManagerTest, ProfilesAreLimited) {
  service_.list(std::vector<ObjectPath>(kLongestBusList + 100, ObjectPath(kProfilePath)));
  service_.method(kProfilePath, kProfile, "GetSettings", [] { return wifiProfile("Same"); });
  service_.start();
  const auto networks = manager_.savedNetworks(deadline());
  ASSERT_TRUE(networks) << networks.error().message;
  EXPECT_EQ(networks->size(), kLongestBusList);
}

TEST_F(NetworkManagerTest, ProfilesThatCannotBeReadAreLeftOut) {
  service_.list({ObjectPath("/gone"), ObjectPath("/others"), ObjectPath("/huge"),
                 ObjectPath("/odd"), ObjectPath("/good")});
  service_.method("/others", kProfile, "GetSettings", []() -> Sections {
    throw sdbus::Error("org.freedesktop.NetworkManager.Settings.PermissionDenied");
  });
  service_.method("/huge", kProfile, "GetSettings",
                  [] { return std::vector<std::string>(5'000, std::string(1'000, 'x')); });
  service_.method("/odd", kProfile, "GetSettings", [] { return std::string("settings"); });
  service_.method("/good", kProfile, "GetSettings", [] { return wifiProfile("Good"); });
  service_.start();
  const auto networks = manager_.savedNetworks(deadline());
  ASSERT_TRUE(networks) << networks.error().message;
  ASSERT_EQ(networks->size(), 1U);
  EXPECT_EQ(networks->front().ssid, "Good");
}

TEST_F(NetworkManagerTest, ProfilesThatAreAllRefusedAreNotPermitted) {
  service_.list({ObjectPath("/first"), ObjectPath("/second")});
  for (const char* const path : {"/first", "/second"}) {
    service_.method(path, kProfile, "GetSettings", []() -> Sections {
      throw sdbus::Error("org.freedesktop.NetworkManager.Settings.PermissionDenied");
    });
  }
  service_.start();
  EXPECT_EQ(manager_.savedNetworks(deadline()).error().reason, Reason::notPermitted);
}

TEST_F(NetworkManagerTest, OneProfileThatIsNeverToldEndsAtTheDeadline) {
  service_.list({ObjectPath(kProfilePath)});
  service_.silentMethod<Sections>(kProfilePath, kProfile, "GetSettings");
  service_.start();
  EXPECT_EQ(manager_.savedNetworks(shortDeadline()).error().reason, Reason::tookTooLong);
}

TEST_F(NetworkManagerTest, TellsItsLastScan) {
  service_.property(kDevicePath, kWireless, "LastScan", std::int64_t{123'456});
  service_.property(kDevicePath, kManagedDevice, "State", std::uint32_t{30});
  service_.start();
  EXPECT_EQ(manager_.lastScan("wlan0", deadline()), Result<LastScan>(LastScan(123'456ms)));
}

TEST_F(NetworkManagerTest, AScanThatNeverWasHasNoTime) {
  service_.property(kDevicePath, kWireless, "LastScan", std::int64_t{-1});
  service_.property(kDevicePath, kManagedDevice, "State", std::uint32_t{30});
  service_.start();
  EXPECT_EQ(manager_.lastScan("wlan0", deadline()), Result<LastScan>(LastScan()));
}

struct Refusal {
  const char* error;
  const char* words;
};

class RequestScan : public NetworkManagerTest {
 protected:
  Result<ScanStart> refusedWith(const Refusal& refusal) {
    service_.property(kDevicePath, kManagedDevice, "State", std::uint32_t{30});
    service_.method(kDevicePath, kWireless, "RequestScan", [refusal](const Properties& options) {
      EXPECT_TRUE(options.empty());
      if (refusal.error) throw sdbus::Error(refusal.error, refusal.words);
    });
    service_.start();
    return manager_.requestScan("wlan0", deadline());
  }
};

TEST_F(RequestScan, Starts) {
  EXPECT_EQ(refusedWith({nullptr, nullptr}), Result<ScanStart>(ScanStart::started));
}

TEST_F(RequestScan, IsTooSoonAfterAnother) {
  EXPECT_EQ(refusedWith({"org.freedesktop.NetworkManager.Device.NotAllowed",
                         "Scanning not allowed immediately following previous scan"}),
            Result<ScanStart>(ScanStart::tooSoon));
}

TEST_F(RequestScan, WaitsForARadioThatIsNotReady) {
  EXPECT_EQ(refusedWith({"org.freedesktop.NetworkManager.Device.NotAllowed",
                         "Scanning not allowed while unavailable"}),
            Result<ScanStart>(ScanStart::notReady));
}

TEST_F(RequestScan, IsRefusedForOtherReasons) {
  EXPECT_EQ(refusedWith({"org.freedesktop.NetworkManager.Device.NotAllowed", "no"}).error().reason,
            Reason::failed);
}

TEST_F(RequestScan, IsNotPermittedToEverybody) {
  EXPECT_EQ(
      refusedWith({"org.freedesktop.NetworkManager.Device.PermissionDenied", "no"}).error().reason,
      Reason::notPermitted);
}

TEST_F(NetworkManagerTest, ListsTheAccessPointsThatAreStillThere) {
  constexpr auto kAccessPoint = "org.freedesktop.NetworkManager.AccessPoint";
  service_.property(kDevicePath, kManagedDevice, "State", std::uint32_t{100});
  service_.method(kDevicePath, kWireless, "GetAllAccessPoints", [] {
    return std::vector<ObjectPath>{ObjectPath("/point/1"), ObjectPath("/point/gone")};
  });
  service_.property("/point/1", kAccessPoint, "HwAddress", std::string("02:AA:00:00:00:01"));
  service_.property("/point/1", kAccessPoint, "Ssid", ssidBytes("Cafe"));
  service_.property("/point/1", kAccessPoint, "Strength", std::uint8_t{75});
  service_.start();
  const auto points = manager_.accessPoints("wlan0", deadline());
  ASSERT_TRUE(points) << points.error().message;
  ASSERT_EQ(points->size(), 1U);
  EXPECT_EQ(points->front().bssid, "02:aa:00:00:00:01");
  EXPECT_EQ(points->front().ssid, "Cafe");
  EXPECT_EQ(points->front().signal, -55);
}

TEST_F(NetworkManagerTest, TheRadioIsSwitched) {
  std::promise<bool> switched;
  service_.object(kRoot)
      .registerProperty("WirelessEnabled")
      .onInterface(kManagerName)
      .withGetter([] { return true; })
      .withSetter([&switched](const bool& on) { switched.set_value(on); });
  service_.start();
  EXPECT_EQ(manager_.isWirelessEnabled(deadline()), Result<bool>(true));
  EXPECT_TRUE(manager_.setWirelessEnabled(false, deadline()));
  EXPECT_FALSE(switched.get_future().get());
}

TEST_F(NetworkManagerTest, TheRadioIsNotSwitchedWithoutPermission) {
  service_.object(kRoot)
      .registerProperty("WirelessEnabled")
      .onInterface(kManagerName)
      .withGetter([] { return true; })
      .withSetter([](const bool&) {
        throw sdbus::Error("org.freedesktop.NetworkManager.PermissionDenied", "Not authorized");
      });
  service_.start();
  const auto problem = manager_.setWirelessEnabled(false, deadline());
  ASSERT_FALSE(problem);
  EXPECT_EQ(problem.error().reason, Reason::notPermitted);
}

TEST_F(NetworkManagerTest, ARestartInTheMiddleIsUnknownAndTheNextCallIsAnswered) {
  std::promise<void> asked;
  auto first = std::make_unique<FakeService>(daemon_.address(), kManagerName);
  first->method(kRoot, kManagerName, "GetDeviceByIpIface",
                [&asked, kept = std::make_shared<sdbus::Result<ObjectPath>>()](
                    sdbus::Result<ObjectPath>&& result, const std::string&) {
                  *kept = std::move(result);
                  asked.set_value();
                });
  first->start();
  auto answer =
      std::async(std::launch::async, [&] { return manager_.activeProfile("wlan0", deadline()); });
  ASSERT_EQ(asked.get_future().wait_for(30s), std::future_status::ready);
  first.reset();
  EXPECT_EQ(answer.get().error().reason, Reason::noService);
  service_.joined(wifiProfile("Home"));
  service_.start();
  EXPECT_TRUE(manager_.activeProfile("wlan0", deadline()));
}

}  // namespace
}  // namespace wifi_profile::linux::bus
