#include "devices/linux/bus/ConnectionManager.h"

#include "devices/linux/bus/Iwd.h"
#include "devices/linux/bus/NetworkManager.h"
#include "devices/linux/bus/Supplicant.h"

namespace wifi_profile::linux::bus {

using facts::ActiveProfile;
using facts::SavedNetwork;

namespace {

using ManagerKind = ConnectionManager::Kind;

const char* nameOf(ManagerKind kind) { return kind == ManagerKind::iwd ? "iwd" : "wpa_supplicant"; }

// The reason for facts that iwd and wpa_supplicant do not know.
Error notTold(ManagerKind kind, const char* what) {
  return {Reason::notTold,
          std::string(nameOf(kind)) + " does not say " + what + "; only NetworkManager does."};
}

}  // namespace

Result<ManagerKind> ConnectionManager::kind(const std::string& interface,
                                            const Deadline& deadline) {
  if (kind_ && kindOf_ == interface) return *kind_;
  auto found = findKind(interface, deadline);
  if (found) {
    kind_ = *found;
    kindOf_ = interface;
  }
  return found;
}

Result<ManagerKind> ConnectionManager::findKind(const std::string& interface,
                                                const Deadline& deadline) {
  const auto byNetworkManager = NetworkManager(bus_).manages(interface, deadline);
  if (byNetworkManager && *byNetworkManager) return ManagerKind::networkManager;
  const auto isAbsent = [](const Result<bool>& manages) {
    return manages || manages.error().reason == Reason::noService;
  };
  if (!isAbsent(byNetworkManager)) return byNetworkManager.error();
  const auto byIwd = Iwd(bus_).manages(interface, deadline);
  if (byIwd && *byIwd) return ManagerKind::iwd;
  if (!isAbsent(byIwd)) return byIwd.error();
  const auto bySupplicant = Supplicant(bus_).manages(interface, deadline);
  if (bySupplicant && *bySupplicant) return ManagerKind::supplicant;
  if (!isAbsent(bySupplicant)) return bySupplicant.error();
  if (byNetworkManager) {
    return Error{Reason::noService, "NetworkManager is running, but does not take care of " +
                                        interface + " (nmcli device set " + interface +
                                        " managed yes), and neither does iwd or "
                                        "wpa_supplicant."};
  }
  return byNetworkManager.error();
}

Result<ActiveProfile> ConnectionManager::activeProfile(const std::string& interface,
                                                       const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  if (*manager != ManagerKind::networkManager)
    return notTold(*manager, "how addresses were set up");
  return NetworkManager(bus_).activeProfile(interface, deadline);
}

Result<std::vector<std::string>> ConnectionManager::dnsServers(const std::string& interface,
                                                               const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  if (*manager != ManagerKind::networkManager) return notTold(*manager, "the link's DNS servers");
  return NetworkManager(bus_).dnsServers(interface, deadline);
}

Result<std::vector<SavedNetwork>> ConnectionManager::savedNetworks(const std::string& interface,
                                                                   const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  switch (*manager) {
    case ManagerKind::networkManager:
      return NetworkManager(bus_).savedNetworks(deadline);
    case ManagerKind::iwd:
      return Iwd(bus_).savedNetworks(deadline);
    case ManagerKind::supplicant:
      break;
  }
  return Supplicant(bus_).savedNetworks(interface, deadline);
}

Result<LastScan> ConnectionManager::lastScan(const std::string& interface,
                                             const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  if (*manager != ManagerKind::networkManager) return notTold(*manager, "when it scanned last");
  return NetworkManager(bus_).lastScan(interface, deadline);
}

Result<std::vector<facts::AccessPoint>> ConnectionManager::accessPoints(
    const std::string& interface, const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  if (*manager != ManagerKind::networkManager)
    return notTold(*manager, "which access points it heard");
  return NetworkManager(bus_).accessPoints(interface, deadline);
}

Result<ScanStart> ConnectionManager::requestScan(const std::string& interface,
                                                 const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  switch (*manager) {
    case ManagerKind::networkManager:
      return NetworkManager(bus_).requestScan(interface, deadline);
    case ManagerKind::iwd:
      return Iwd(bus_).requestScan(interface, deadline);
    case ManagerKind::supplicant:
      break;
  }
  return Supplicant(bus_).requestScan(interface, deadline);
}

Result<bool> ConnectionManager::isRadioOn(const std::string& interface, const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  if (*manager == ManagerKind::networkManager)
    return NetworkManager(bus_).isWirelessEnabled(deadline);
  return Error{Reason::notSupported,
               std::string(nameOf(*manager)) + " has no switch for all Wi-Fi."};
}

Status ConnectionManager::setRadioOn(const std::string& interface, bool on,
                                     const Deadline& deadline) {
  const auto manager = kind(interface, deadline);
  if (!manager) return manager.error();
  if (*manager == ManagerKind::networkManager) {
    return NetworkManager(bus_).setWirelessEnabled(on, deadline);
  }
  return Error{Reason::notSupported,
               std::string(nameOf(*manager)) + " has no switch for all Wi-Fi."};
}

}  // namespace wifi_profile::linux::bus
