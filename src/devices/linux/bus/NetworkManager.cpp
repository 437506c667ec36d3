#include "devices/linux/bus/NetworkManager.h"

#include <algorithm>

#include "devices/linux/SinceBoot.h"
#include "devices/linux/bus/AccessPointList.h"
#include "devices/linux/bus/ProfileFacts.h"
#include "devices/linux/bus/Services.h"

namespace wifi_profile::linux::bus {

using facts::ActiveProfile;
using facts::SavedNetwork;

namespace {

constexpr auto kManagerPath = "/org/freedesktop/NetworkManager";
constexpr auto kManager = "org.freedesktop.NetworkManager";
constexpr auto kDevice = "org.freedesktop.NetworkManager.Device";
constexpr auto kWireless = "org.freedesktop.NetworkManager.Device.Wireless";
constexpr auto kAccessPoint = "org.freedesktop.NetworkManager.AccessPoint";
constexpr auto kActive = "org.freedesktop.NetworkManager.Connection.Active";
constexpr auto kSettingsPath = "/org/freedesktop/NetworkManager/Settings";
constexpr auto kSettings = "org.freedesktop.NetworkManager.Settings";
constexpr auto kProfile = "org.freedesktop.NetworkManager.Settings.Connection";
constexpr auto kDhcp4Config = "org.freedesktop.NetworkManager.DHCP4Config";
constexpr auto kIp4Config = "org.freedesktop.NetworkManager.IP4Config";
constexpr auto kIp6Config = "org.freedesktop.NetworkManager.IP6Config";

constexpr std::int64_t kUnmanaged = 10;  // a device's state: not managed by NetworkManager

// Returns the path of an object; empty if there is none, which "/" stands for.
std::optional<std::string> objectAt(const BusValue& properties, const char* key) {
  auto path = properties.at(key).text();
  return path && path->size() > 1 ? path : std::nullopt;
}

}  // namespace

Result<std::string> NetworkManager::owner(const Deadline& deadline) {
  const BusAnswer answer = bus_.ownerOf(kNetworkManager.busName, deadline);
  if (!answer.isGood()) return unknownFrom(answer, kNetworkManager);
  return answer.first().text().value_or("");
}

Result<NetworkManager::Device> NetworkManager::device(const std::string& interface,
                                                      const Deadline& deadline) {
  const auto service = owner(deadline);
  if (!service) return service.error();
  const BusAnswer found =
      bus_.call({*service, kManagerPath, kManager, "GetDeviceByIpIface", {interface}}, deadline);
  const auto path = found.first().text();
  if (!path && (found.isGood() || found.error->kind == BusError::Kind::noSuchThing)) {
    return Error{Reason::noHardware, "NetworkManager knows no interface " + interface + "."};
  }
  if (!path) return unknownFrom(found, kNetworkManager);
  BusAnswer properties = bus_.call(getProperties(*service, *path, kDevice), deadline);
  if (!properties.isGood()) return unknownFrom(properties, kNetworkManager);
  return Device{*service, *path, properties.first()};
}

Result<bool> NetworkManager::manages(const std::string& interface, const Deadline& deadline) {
  const auto found = device(interface, deadline);
  if (!found && found.error().reason == Reason::noHardware) return false;
  if (!found) return found.error();
  const auto state = found->properties.at("State").integer();
  return state.has_value() && *state > kUnmanaged;
}

Result<ActiveProfile> NetworkManager::activeProfile(const std::string& interface,
                                                    const Deadline& deadline) {
  const auto found = device(interface, deadline);
  if (!found) return found.error();
  const auto active = objectAt(found->properties, "ActiveConnection");
  if (!active) return Error{Reason::notJoined, interface + " is not connected."};
  std::vector<BusCall> calls{getProperty(found->owner, *active, kActive, "Connection")};
  if (const auto dhcp = objectAt(found->properties, "Dhcp4Config")) {
    calls.push_back(getProperty(found->owner, *dhcp, kDhcp4Config, "Options"));
  }
  const auto answers = bus_.call(calls, deadline);
  const auto profile = answers[0].first().text();
  if (!profile) return unknownFrom(answers[0], kNetworkManager);
  const BusAnswer settings =
      bus_.call({found->owner, *profile, kProfile, "GetSettings", {}}, deadline);
  if (!settings.isGood()) return unknownFrom(settings, kNetworkManager);
  return activeProfileFrom(
      {settings.first(), found->properties, answers.size() > 1 ? answers[1].first() : BusValue()});
}

Result<std::vector<std::string>> NetworkManager::dnsServers(const std::string& interface,
                                                            const Deadline& deadline) {
  const auto found = device(interface, deadline);
  if (!found) return found.error();
  const auto ip4 = objectAt(found->properties, "Ip4Config");
  const auto ip6 = objectAt(found->properties, "Ip6Config");
  if (!ip4 && !ip6) return Error{Reason::notJoined, interface + " is not connected."};
  const std::string none = "/";
  const auto answers = bus_.call({getProperties(found->owner, ip4.value_or(none), kIp4Config),
                                  getProperties(found->owner, ip6.value_or(none), kIp6Config)},
                                 deadline);
  auto servers = dnsServersFrom(answers[0].first(), answers[1].first());
  // An empty list is certain only if both versions have answered.
  if (servers.empty() && ip4 && !answers[0].isGood())
    return unknownFrom(answers[0], kNetworkManager);
  if (servers.empty() && ip6 && !answers[1].isGood())
    return unknownFrom(answers[1], kNetworkManager);
  return servers;
}

Result<std::vector<SavedNetwork>> NetworkManager::savedNetworks(const Deadline& deadline) {
  const auto service = owner(deadline);
  if (!service) return service.error();
  const BusAnswer listed =
      bus_.call({*service, kSettingsPath, kSettings, "ListConnections", {}}, deadline);
  if (!listed.isGood()) return unknownFrom(listed, kNetworkManager);
  const BusValue::List& paths = listed.first().list();
  const std::size_t count = std::min(paths.size(), kLongestBusList);
  std::vector<SavedNetwork> networks;
  std::size_t refused = 0;
  for (std::size_t begin = 0; begin < count; begin += Bus::kCallsAtATime) {
    std::vector<BusCall> calls;
    for (std::size_t index = begin; index < std::min(count, begin + Bus::kCallsAtATime); ++index) {
      calls.push_back({*service, paths[index].text().value_or(""), kProfile, "GetSettings", {}});
    }
    for (const BusAnswer& answer : bus_.call(calls, deadline)) {
      using Kind = BusError::Kind;
      // A profile may have been deleted meanwhile, or belong to another user.
      const bool isRefused = answer.error && answer.error->kind == Kind::notPermitted;
      if (isRefused && ++refused == count) return unknownFrom(answer, kNetworkManager);
      if (answer.error && answer.error->kind != Kind::noSuchThing && !isRefused &&
          answer.error->kind != Kind::unreadable) {
        return unknownFrom(answer, kNetworkManager);
      }
      if (auto network = savedNetworkFrom(answer.first())) networks.push_back(std::move(*network));
    }
  }
  return networks;
}

Result<LastScan> NetworkManager::lastScan(const std::string& interface, const Deadline& deadline) {
  const auto found = device(interface, deadline);
  if (!found) return found.error();
  const BusAnswer answer =
      bus_.call(getProperty(found->owner, found->path, kWireless, "LastScan"), deadline);
  const auto time = answer.first().integer();
  if (!time) return unknownFrom(answer, kNetworkManager);
  return *time < 0 ? LastScan() : LastScan(std::chrono::milliseconds(*time));
}

Result<std::vector<facts::AccessPoint>> NetworkManager::accessPoints(const std::string& interface,
                                                                     const Deadline& deadline) {
  const auto found = device(interface, deadline);
  if (!found) return found.error();
  const BusAnswer listed =
      bus_.call({found->owner, found->path, kWireless, "GetAllAccessPoints", {}}, deadline);
  if (!listed.isGood()) return unknownFrom(listed, kNetworkManager);
  const BusValue::List& paths = listed.first().list();
  const std::size_t count = std::min(paths.size(), kLongestBusList);
  std::vector<facts::AccessPoint> points;
  for (std::size_t begin = 0; begin < count; begin += Bus::kCallsAtATime) {
    std::vector<BusCall> calls;
    for (std::size_t index = begin; index < std::min(count, begin + Bus::kCallsAtATime); ++index) {
      calls.push_back(getProperties(found->owner, paths[index].text().value_or(""), kAccessPoint));
    }
    for (const BusAnswer& answer : bus_.call(calls, deadline)) {
      // An access point may have been removed meanwhile.
      if (answer.error && answer.error->kind != BusError::Kind::noSuchThing) {
        return unknownFrom(answer, kNetworkManager);
      }
      if (auto point = accessPointFrom(answer.first(), sinceBoot())) {
        points.push_back(std::move(*point));
      }
    }
  }
  return points;
}

Result<ScanStart> NetworkManager::requestScan(const std::string& interface,
                                              const Deadline& deadline) {
  const auto found = device(interface, deadline);
  if (!found) return found.error();
  const BusAnswer answer =
      bus_.call({found->owner, found->path, kWireless, "RequestScan", {BusOptions{}}}, deadline);
  if (answer.isGood()) return ScanStart::started;
  // One error name stands for several refusals; only the message differs.
  const std::string& words = answer.error->message;
  const auto says = [&words](const char* word) { return words.find(word) != std::string::npos; };
  if (answer.error->name.ends_with(".NotAllowed")) {
    if (says("immediately") || says("already")) return ScanStart::tooSoon;
    if (says("unavailable")) return ScanStart::notReady;
  }
  return unknownFrom(answer, kNetworkManager);
}

Result<bool> NetworkManager::isWirelessEnabled(const Deadline& deadline) {
  const auto service = owner(deadline);
  if (!service) return service.error();
  const BusAnswer answer =
      bus_.call(getProperty(*service, kManagerPath, kManager, "WirelessEnabled"), deadline);
  const auto flag = answer.first().boolean();
  if (!flag) return unknownFrom(answer, kNetworkManager);
  return *flag;
}

Status NetworkManager::setWirelessEnabled(bool enabled, const Deadline& deadline) {
  const auto service = owner(deadline);
  if (!service) return service.error();
  const BusAnswer answer = bus_.call({*service,
                                      kManagerPath,
                                      "org.freedesktop.DBus.Properties",
                                      "Set",
                                      {kManager, "WirelessEnabled", BooleanVariant{enabled}}},
                                     deadline);
  if (answer.isGood()) return {};
  return unknownFrom(answer, kNetworkManager);
}

}  // namespace wifi_profile::linux::bus
