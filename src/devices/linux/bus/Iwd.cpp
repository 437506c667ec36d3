#include "devices/linux/bus/Iwd.h"

#include "analysis/ieee80211/Network.h"
#include "devices/linux/bus/ProfileFacts.h"
#include "devices/linux/bus/ProfileSecurity.h"
#include "devices/linux/bus/Services.h"

namespace wifi_profile::linux::bus {

using facts::SavedNetwork;

namespace {

constexpr auto kIwdDevice = "net.connman.iwd.Device";
constexpr auto kStation = "net.connman.iwd.Station";
constexpr auto kKnownNetwork = "net.connman.iwd.KnownNetwork";

// Returns the path of the interface's object if it is a station; empty otherwise.
std::optional<std::string> stationPath(const BusValue& objects, const std::string& interface) {
  for (const auto& [path, interfaces] : objects.map()) {
    if (interfaces.at(kIwdDevice).at("Name").text() == interface &&
        interfaces.map().contains(kStation)) {
      return path;
    }
  }
  return std::nullopt;
}

}  // namespace

std::vector<SavedNetwork> savedNetworksFromIwd(const BusValue& objects) {
  std::vector<SavedNetwork> networks;
  for (const auto& [path, interfaces] : objects.map()) {
    const BusValue& known = interfaces.at(kKnownNetwork);
    const auto name = known.at("Name").text();
    if (!name || name->empty() || name->size() > ieee80211::kLongestSsid) continue;
    if (networks.size() == kLongestBusList) break;
    const std::string type = known.at("Type").text().value_or("");
    SavedNetwork network;
    network.ssid = *name;
    network.security = securityFromIwd(type);
    network.isPasspoint = type == "hotspot";
    network.isHidden = known.at("Hidden").boolean().value_or(false);
    network.joinsByItself = known.at("AutoConnect").boolean().value_or(true);
    network.lastJoined = dateFromIso8601(known.at("LastConnectedTime").text().value_or(""));
    networks.push_back(std::move(network));
  }
  return networks;
}

Result<Iwd::Objects> Iwd::objects(const Deadline& deadline) {
  const BusAnswer owner = bus_.ownerOf(kIwd.busName, deadline);
  if (!owner.isGood()) return unknownFrom(owner, kIwd);
  const std::string name = owner.first().text().value_or("");
  const BusAnswer answer = bus_.call(
      {name, "/", "org.freedesktop.DBus.ObjectManager", "GetManagedObjects", {}}, deadline);
  if (!answer.isGood()) return unknownFrom(answer, kIwd);
  return Objects{name, answer.first()};
}

Result<bool> Iwd::manages(const std::string& interface, const Deadline& deadline) {
  const auto found = objects(deadline);
  if (!found) return found.error();
  return stationPath(found->objects, interface).has_value();
}

Result<std::vector<SavedNetwork>> Iwd::savedNetworks(const Deadline& deadline) {
  const auto found = objects(deadline);
  if (!found) return found.error();
  return savedNetworksFromIwd(found->objects);
}

Result<ScanStart> Iwd::requestScan(const std::string& interface, const Deadline& deadline) {
  const auto found = objects(deadline);
  if (!found) return found.error();
  const auto path = stationPath(found->objects, interface);
  if (!path) return Error{Reason::noHardware, "iwd has no station on " + interface + "."};
  const BusAnswer answer = bus_.call({found->owner, *path, kStation, "Scan", {}}, deadline);
  if (answer.isGood()) return ScanStart::started;
  const std::string& error = answer.error->name;
  if (error.ends_with(".InProgress") || error.ends_with(".Busy")) return ScanStart::tooSoon;
  return unknownFrom(answer, kIwd);
}

}  // namespace wifi_profile::linux::bus
