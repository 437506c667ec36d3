#include "devices/scenario/WorldParts.h"
#include "devices/scenario/WorldValues.h"

namespace wifi_profile::scenario {

using runtime::FieldsReader;
using runtime::ValueReader;

namespace {

constexpr int kMostThings = 1'000'000;

facts::AddressSettings readAddressSettings(const ValueReader& value) {
  using Method = facts::AddressMethod;
  static constexpr std::pair<std::string_view, Method> kChoices[]{{"automatic", Method::automatic},
                                                                  {"manual", Method::manual},
                                                                  {"linkLocal", Method::linkLocal},
                                                                  {"shared", Method::shared},
                                                                  {"disabled", Method::disabled}};
  facts::AddressSettings settings;
  value.object([&](FieldsReader& fields) {
    fields.take("method",
                [&](const ValueReader& field) { settings.method = readChoice(field, kChoices); });
    takeTexts(fields, "dnsServers", settings.dnsServers);
    takeFlag(fields, "ignoresNetworkDns", settings.ignoresNetworkDns);
    takeFlag(fields, "hasExtraAddresses", settings.hasExtraAddresses);
  });
  return settings;
}

facts::SavedNetwork readSavedNetwork(const ValueReader& value) {
  facts::SavedNetwork network;
  value.object([&](FieldsReader& fields) {
    fields.require("ssid", [&](const ValueReader& field) { network.ssid = readSsid(field); });
    fields.take("security",
                [&](const ValueReader& field) { network.security = readSecurity(field); });
    takeFlag(fields, "hidden", network.isHidden);
    takeFlag(fields, "passpoint", network.isPasspoint);
    takeFlag(fields, "joinsByItself", network.joinsByItself);
    takeFlag(fields, "metered", network.metered);
    fields.take("lastJoined",
                [&](const ValueReader& field) { network.lastJoined = field.dateOrNull(); });
    takeInteger(fields, "accessPoints", 0, kMostThings, network.accessPoints);
  });
  return network;
}

}  // namespace

template <>
facts::Addresses readFact(const ValueReader& value) {
  facts::Addresses addresses;
  value.object([&](FieldsReader& fields) {
    takeTexts(fields, "ipv4", addresses.ipv4, readIpv4);
    takeTexts(fields, "ipv6", addresses.ipv6, readIpv6);
    fields.take("ipv4Gateway",
                [&](const ValueReader& field) { addresses.ipv4Gateway = readIpv4(field); });
    fields.take("ipv6Gateway",
                [&](const ValueReader& field) { addresses.ipv6Gateway = readIpv6(field); });
    const auto takeServers = [&](const char* name, auto& servers) {
      fields.take(name, [&](const ValueReader& field) {
        servers.emplace();
        field.list([&](const ValueReader& server) { servers->push_back(server.text()); });
      });
    };
    takeServers("dnsServers", addresses.dnsServers);
    takeServers("systemDnsServers", addresses.systemDnsServers);
    fields.take("systemDnsThrough", [&](const ValueReader& field) {
      addresses.systemDnsThrough = {.name = field.text()};
    });
    fields.take("otherWayOut",
                [&](const ValueReader& field) { addresses.otherWayOut = field.text(); });
  });
  return addresses;
}

template <>
facts::ActiveProfile readFact(const ValueReader& value) {
  facts::ActiveProfile profile;
  value.object([&](FieldsReader& fields) {
    fields.take("ipv4",
                [&](const ValueReader& field) { profile.ipv4 = readAddressSettings(field); });
    fields.take("ipv6",
                [&](const ValueReader& field) { profile.ipv6 = readAddressSettings(field); });
    takeFlag(fields, "hasProxy", profile.hasProxy);
    takeFlag(fields, "metered", profile.metered);
    takeText(fields, "captivePortalApi", profile.captivePortalApi);
  });
  return profile;
}

template <>
std::vector<facts::SavedNetwork> readFact(const ValueReader& value) {
  std::vector<facts::SavedNetwork> networks;
  value.list([&](const ValueReader& element) { networks.push_back(readSavedNetwork(element)); });
  return networks;
}

template <>
facts::SessionProxy readFact(const ValueReader& value) {
  facts::SessionProxy proxy;
  value.object([&](FieldsReader& fields) {
    fields.require("source", [&](const ValueReader& field) { proxy.source = field.text(); });
  });
  return proxy;
}

template <>
facts::Bluetooth readFact(const ValueReader& value) {
  facts::Bluetooth bluetooth;
  value.object([&](FieldsReader& fields) {
    takeInteger(fields, "paired", 0, kMostThings, bluetooth.paired);
    takeInteger(fields, "connected", 0, kMostThings, bluetooth.connected);
  });
  return bluetooth;
}

template <>
facts::Coexistence readFact(const ValueReader& value) {
  facts::Coexistence coexistence;
  value.object([&](FieldsReader& fields) {
    fields.require("takesTurns",
                   [&](const ValueReader& field) { coexistence.takesTurns = field.boolean(); });
  });
  return coexistence;
}

}  // namespace wifi_profile::scenario
