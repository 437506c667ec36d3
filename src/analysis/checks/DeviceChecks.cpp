// Checks of the device's configuration.
#include <algorithm>
#include <array>

#include "analysis/checks/Answers.h"
#include "analysis/checks/Rows.h"
#include "analysis/facts/NameServers.h"
#include "diagnostic/platform/Number.h"

namespace wifi_profile::checks {
namespace {

std::string_view methodText(facts::AddressMethod method) {
  switch (method) {
    case facts::AddressMethod::automatic:
      return "Automatic";
    case facts::AddressMethod::manual:
      return "Manual";
    case facts::AddressMethod::linkLocal:
      return "Link-Local";
    case facts::AddressMethod::shared:
      return "Shared";
    case facts::AddressMethod::disabled:
      break;
  }
  return "Off";
}

// Any setting of the user counts, including one that disables the IP version.
Answer customAddresses(const Question& question,
                       facts::AddressSettings facts::ActiveProfile::*version, const char* key) {
  const Result<facts::ActiveProfile>& profile = question.facts.activeProfile;
  if (!profile) return profile.error();
  const facts::AddressSettings& settings = (*profile).*version;
  return finding(settings.method != facts::AddressMethod::automatic || settings.hasExtraAddresses,
                 {{key, makeText(methodText(settings.method))}});
}

Answer customIpv4(const Question& question) {
  return customAddresses(question, &facts::ActiveProfile::ipv4, "IPv4ConfigMethod");
}

Answer customIpv6(const Question& question) {
  return customAddresses(question, &facts::ActiveProfile::ipv6, "IPv6ConfigMethod");
}

// Name servers behind another interface, such as a tunnel or a cable, come with that interface and
// are not set by hand.
bool asksOthersThroughTheLink(const Result<facts::Addresses>& addresses) {
  return addresses && facts::asksOthers(*addresses) && !addresses->systemDnsThrough;
}

Answer customDns(const Question& question) {
  const Result<facts::ActiveProfile>& profile = question.facts.activeProfile;
  if (!profile) return profile.error();
  const auto isCustom = [](const facts::AddressSettings& settings) {
    return !settings.dnsServers.empty() || settings.ignoresNetworkDns;
  };
  return finding(isCustom(profile->ipv4) || isCustom(profile->ipv6) ||
                 asksOthersThroughTheLink(question.facts.addresses));
}

// One known proxy is enough for a finding. That there is none follows only from both facts.
Answer customProxy(const Question& question) {
  const Result<facts::ActiveProfile>& profile = question.facts.activeProfile;
  const Result<facts::SessionProxy>& session = question.facts.sessionProxy;
  if ((profile && profile->hasProxy) || (session && !session->source.empty())) return finding(true);
  if (!profile) return profile.error();
  if (!session) return session.error();
  return finding(false);
}

Answer bluetoothPaired(const Question& question) {
  const Result<facts::Bluetooth>& bluetooth = question.facts.bluetooth;
  if (!bluetooth) return bluetooth.error();
  return finding(bluetooth->paired > question.settings.bluetoothPairedAbove,
                 {{"BTPairedCount", Number::withInteger(bluetooth->paired)}});
}

Answer bluetoothConnected(const Question& question) {
  const Result<facts::Bluetooth>& bluetooth = question.facts.bluetooth;
  if (!bluetooth) return bluetooth.error();
  return finding(bluetooth->connected > question.settings.bluetoothConnectedAbove,
                 {{"BTConnectedCount", Number::withInteger(bluetooth->connected)}});
}

// The antenna is shared only while a Bluetooth device is connected.
Answer bluetoothCoexistence(const Question& question) {
  const Result<facts::Coexistence>& coexistence = question.facts.coexistence;
  const Result<facts::Bluetooth>& bluetooth = question.facts.bluetooth;
  if (!coexistence) return coexistence.error();
  if (!coexistence->takesTurns) return finding(false);
  if (bluetooth) return finding(bluetooth->connected > 0);
  if (bluetooth.error().reason == Reason::noHardware) return finding(false);
  return bluetooth.error();
}

Answer directLink(const Question& question) {
  const Result<facts::Radio>& radio = question.facts.radio;
  if (!radio) return radio.error();
  return finding(std::ranges::any_of(radio->interfaces, [](const facts::RadioInterface& interface) {
    return interface.role == facts::RadioInterface::Role::peerLink;
  }));
}

constexpr std::string_view kProfileUnknownWhen =
    "not joined, or NetworkManager did not set up the joined network";
constexpr std::string_view kBluetoothUnknownWhen = "BlueZ is not running, or there is no adapter";

constexpr std::array kDeviceRows{
    Check{.id = DiagnosticsTestID::CustomIPv4,
          .answer = customIpv4,
          .needs = {facts::Fact::activeProfile},
          .measures =
              "Whether the profile of the joined network configures IPv4 other than automatically "
              "(by hand, shared, link-local or disabled), or adds addresses or a gateway.",
          .from =
              "NetworkManager's settings of the active connection: ipv4.method, address-data (or "
              "addresses), gateway",
          .threshold =
              "any method except automatic (\"auto\", which is DHCP: RFC 2131), or an addition",
          .why = "Settings made for another network are a common reason why one does not work",
          .unknownWhen = kProfileUnknownWhen},
    Check{.id = DiagnosticsTestID::CustomIPv6,
          .answer = customIpv6,
          .needs = {facts::Fact::activeProfile},
          .measures = "The same for IPv6.",
          .from =
              "NetworkManager's settings of the active connection: ipv6.method, address-data (or "
              "addresses), gateway",
          .threshold = "any method except automatic (\"auto\" and \"dhcp\": router advertisements, "
                       "RFC 4862, or DHCPv6; \"ignore\": left to the kernel), or an addition",
          .why = "As for CustomIPv4",
          .unknownWhen = kProfileUnknownWhen},
    Check{
        .id = DiagnosticsTestID::CustomDNS,
        .answer = customDns,
        .needs = {facts::Fact::activeProfile, facts::Fact::addresses},
        .measures = "Whether the profile of the joined network names DNS servers or refuses those "
                    "of the network, or the system asks none of the link's servers (also if the "
                    "link has none). Servers that are reached only through another interface, such "
                    "as a tunnel, come with that interface and do not count.",
        .from = "NetworkManager's settings of the active connection: dns-data (or dns) and "
                "ignore-auto-dns of ipv4 and ipv6; resolv.conf, and if that names "
                "systemd-resolved, its property DNS; the routes to the servers (RTM_GETROUTE)",
        .threshold = "one server, the refusal, or no server in common",
        .why =
            "Only the network's own servers know the names of its devices and of its sign-in page",
        .unknownWhen = kProfileUnknownWhen},
    Check{.id = DiagnosticsTestID::CustomWebProxy,
          .answer = customProxy,
          .needs = {facts::Fact::activeProfile, facts::Fact::sessionProxy},
          .measures = "Whether the profile of the joined network or the session has a proxy.",
          .from = "NetworkManager's proxy settings of the active connection (method, pac-url, "
                  "pac-script); http_proxy, https_proxy and all_proxy in the environment, in lower "
                  "or upper case; org.freedesktop.portal.ProxyResolver of the desktop",
          .threshold = "one proxy",
          .why = "A proxy that does not exist in this network makes pages fail",
          .unknownWhen = "the profile or the session is not known, and the other one has no proxy"},
    Check{.id = DiagnosticsTestID::BluetoothPaired,
          .answer = bluetoothPaired,
          .needs = {facts::Fact::bluetooth},
          .measures = "The number of paired devices of all adapters.",
          .from = "BlueZ: Paired of org.bluez.Device1",
          .threshold = "above 10 devices (`bluetoothPairedAbove`)",
          .why = "This project's choice",
          .unknownWhen = kBluetoothUnknownWhen},
    Check{.id = DiagnosticsTestID::BluetoothConnected,
          .answer = bluetoothConnected,
          .needs = {facts::Fact::bluetooth},
          .measures = "The number of connected devices of all adapters.",
          .from = "BlueZ: Connected of org.bluez.Device1",
          .threshold = "above 3 devices (`bluetoothConnectedAbove`)",
          .why = "This project's choice. Bluetooth uses the 2.4 GHz band, too",
          .unknownWhen = kBluetoothUnknownWhen},
    Check{.id = DiagnosticsTestID::BTCoex,
          .answer = bluetoothCoexistence,
          .needs = {facts::Fact::coexistence, facts::Fact::bluetooth},
          .measures = "Whether the driver lets Wi-Fi and Bluetooth take turns on the antenna, and "
                      "a Bluetooth device is connected.",
          .from = "bt_coex_active, btcoex_enable or btcoex among the parameters of the Wi-Fi "
                  "driver's module in /sys/module; BlueZ: Connected of org.bluez.Device1",
          .threshold = "one connected device",
          .why = "While one of them sends, the other one waits",
          .unknownWhen = "the driver does not report it (most do not); or they take turns, and the "
                         "Bluetooth connections are not known (without an adapter there are none)"},
    Check{.id = DiagnosticsTestID::PYNXRealTimeMode,
          .answer = directLink,
          .needs = {facts::Fact::radio},
          .measures = "Whether the radio also serves a direct link: Wi-Fi Direct, NAN, IBSS (ad "
                      "hoc) or a mesh.",
          .from = "NL80211_ATTR_IFTYPE of the interfaces of the same radio",
          .threshold = "one such interface; idle interfaces of Wi-Fi Direct do not count",
          .why = "One radio shares its time between the network and the link",
          .unknownWhen = "the kernel does not report the radio's interfaces"},
};

}  // namespace

std::span<const Check> deviceChecks() { return kDeviceRows; }

}  // namespace wifi_profile::checks
