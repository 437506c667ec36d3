#include "analysis/checks/CheckFixture.h"

namespace wifi_profile::checks {
namespace {

class DeviceChecks : public CheckTest {
 protected:
  DeviceChecks() {
    facts.activeProfile = facts::ActiveProfile{};
    facts.sessionProxy = facts::SessionProxy{};
    facts.bluetooth = facts::Bluetooth{.paired = 10, .connected = 3};
    facts.radio = facts::Radio{};
  }
};

struct MethodCase {
  facts::AddressMethod method;
  const char* text;
  bool isCustom;
};

class MethodOfAddresses : public CheckTest, public testing::WithParamInterface<MethodCase> {};

TEST_P(MethodOfAddresses, IsCustomUnlessAutomatic) {
  facts.activeProfile = facts::ActiveProfile{};
  facts.activeProfile->ipv4.method = GetParam().method;
  EXPECT_THAT(ask(Id::CustomIPv4), says(GetParam().isCustom));
  EXPECT_THAT(ask(Id::CustomIPv4), tells("IPv4ConfigMethod", isText(GetParam().text)));
  EXPECT_THAT(ask(Id::CustomIPv6), says(false));
  facts.activeProfile->ipv6.method = GetParam().method;
  EXPECT_THAT(ask(Id::CustomIPv6), says(GetParam().isCustom));
  EXPECT_THAT(ask(Id::CustomIPv6), tells("IPv6ConfigMethod", isText(GetParam().text)));
}

INSTANTIATE_TEST_SUITE_P(
    All, MethodOfAddresses,
    testing::Values(MethodCase{facts::AddressMethod::automatic, "Automatic", false},
                    MethodCase{facts::AddressMethod::manual, "Manual", true},
                    MethodCase{facts::AddressMethod::linkLocal, "Link-Local", true},
                    MethodCase{facts::AddressMethod::shared, "Shared", true},
                    MethodCase{facts::AddressMethod::disabled, "Off", true}));

TEST_F(DeviceChecks, CallAddressesBesidesTheNetworksCustom) {
  facts.activeProfile->ipv6.hasExtraAddresses = true;
  EXPECT_THAT(ask(Id::CustomIPv4), says(false));
  EXPECT_THAT(ask(Id::CustomIPv6), says(true));
}

TEST_F(DeviceChecks, FindDnsServersOfEitherVersion) {
  EXPECT_THAT(ask(Id::CustomDNS), says(false));
  facts.activeProfile->ipv4.dnsServers = {"192.0.2.53"};
  EXPECT_THAT(ask(Id::CustomDNS), says(true));
  facts.activeProfile = facts::ActiveProfile{};
  facts.activeProfile->ipv6.ignoresNetworkDns = true;
  EXPECT_THAT(ask(Id::CustomDNS), says(true));
  facts.activeProfile = facts::ActiveProfile{};
  facts.addresses =
      facts::Addresses{.dnsServers = std::vector<std::string>{"192.0.2.1", "192.0.2.2"},
                       .systemDnsServers = std::vector<std::string>{"192.0.2.2"}};
  EXPECT_THAT(ask(Id::CustomDNS), says(false));
  facts.addresses->systemDnsServers = {"192.0.2.53"};
  EXPECT_THAT(ask(Id::CustomDNS), says(true));
  facts.addresses->systemDnsThrough = facts::OtherInterface{"tun0", true};
  EXPECT_THAT(ask(Id::CustomDNS), says(false));
  facts.addresses->systemDnsThrough.reset();
  facts.addresses->dnsServers->clear();
  EXPECT_THAT(ask(Id::CustomDNS), says(true));
  facts.addresses->dnsServers.reset();
  EXPECT_THAT(ask(Id::CustomDNS), says(false));
}

TEST_F(DeviceChecks, FindAProxyOfProfileOrSession) {
  EXPECT_THAT(ask(Id::CustomWebProxy), says(false));
  facts.activeProfile->hasProxy = true;
  EXPECT_THAT(ask(Id::CustomWebProxy), says(true));
  facts.sessionProxy = Error{Reason::noService, ""};
  EXPECT_THAT(ask(Id::CustomWebProxy), says(true));
  facts.activeProfile->hasProxy = false;
  EXPECT_THAT(ask(Id::CustomWebProxy), isUnknownFor(Reason::noService));
  facts.activeProfile = Error{Reason::notJoined, ""};
  facts.sessionProxy = facts::SessionProxy{"http_proxy in the environment"};
  EXPECT_THAT(ask(Id::CustomWebProxy), says(true));
  facts.sessionProxy = facts::SessionProxy{};
  EXPECT_THAT(ask(Id::CustomWebProxy), isUnknownFor(Reason::notJoined));
}

TEST_F(DeviceChecks, CountBluetoothDevicesAboveTheThresholds) {
  EXPECT_THAT(ask(Id::BluetoothPaired), says(false));
  EXPECT_THAT(ask(Id::BluetoothConnected), says(false));
  facts.bluetooth = facts::Bluetooth{.paired = 11, .connected = 4};
  EXPECT_THAT(ask(Id::BluetoothPaired), says(true));
  EXPECT_THAT(ask(Id::BluetoothPaired), tells("BTPairedCount", isInteger(11)));
  EXPECT_THAT(ask(Id::BluetoothConnected), says(true));
  EXPECT_THAT(ask(Id::BluetoothConnected), tells("BTConnectedCount", isInteger(4)));
}

TEST_F(DeviceChecks, CallTheAntennaSharedWhileABluetoothDeviceIsConnected) {
  EXPECT_THAT(ask(Id::BTCoex), isUnknownFor(Reason::notTold));
  facts.coexistence = facts::Coexistence{};
  facts.bluetooth = Error{Reason::noService, ""};
  EXPECT_THAT(ask(Id::BTCoex), says(false));
  facts.coexistence->takesTurns = true;
  EXPECT_THAT(ask(Id::BTCoex), isUnknownFor(Reason::noService));
  facts.bluetooth = facts::Bluetooth{.paired = 2, .connected = 0};
  EXPECT_THAT(ask(Id::BTCoex), says(false));
  facts.bluetooth->connected = 1;
  EXPECT_THAT(ask(Id::BTCoex), says(true));
}

TEST_F(DeviceChecks, FindADirectLinkOfTheRadio) {
  using Role = facts::RadioInterface::Role;
  facts.radio->interfaces = {
      {"wlan0", Role::station}, {"ap0", Role::accessPoint}, {"", Role::other}};
  EXPECT_THAT(ask(Id::PYNXRealTimeMode), says(false));
  facts.radio->interfaces.push_back({"p2p-wlan0-0", Role::peerLink});
  EXPECT_THAT(ask(Id::PYNXRealTimeMode), says(true));
}

}  // namespace
}  // namespace wifi_profile::checks
