// Whoever manages the interface's connections: NetworkManager, else iwd, else wpa_supplicant. Who
// that is, is found out once for an object, which lives no longer than a piece of work. Where
// nobody is, and where there is no bus, everything is Unknown, noService. An object belongs to one
// thread at a time.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/AirFacts.h"
#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/bus/ScanRequest.h"

namespace wifi_profile::machine {

class ConnectionManager {
 public:
  // `system` lives longer.
  explicit ConnectionManager(Bus& system) : bus_(system) {}

  enum class Kind { networkManager, iwd, supplicant };
  checks::Known<Kind> kind(const std::string& interface, const Patience& patience);

  // Only NetworkManager tells; notTold with the others, notJoined where there is no connection.
  checks::Known<checks::ActiveProfile> activeProfile(const std::string& interface,
                                                     const Patience& patience);
  // Only NetworkManager tells; notTold with the others. In order, IPv4 first.
  checks::Known<std::vector<std::string>> dnsServers(const std::string& interface,
                                                     const Patience& patience);
  checks::Known<std::vector<checks::SavedNetwork>> savedNetworks(const std::string& interface,
                                                                 const Patience& patience);
  // When the manager's last scan of the interface ended; notTold where only NetworkManager tells.
  checks::Known<LastScan> lastScan(const std::string& interface, const Patience& patience);
  // The access points that the manager lists; notTold where only NetworkManager tells.
  checks::Known<std::vector<checks::AccessPoint>> accessPoints(const std::string& interface,
                                                               const Patience& patience);
  // Asks for a scan, and does not wait for its end.
  checks::Known<ScanStart> requestScan(const std::string& interface, const Patience& patience);

  // The manager's switch of all Wi-Fi: NetworkManager's. notSupported with the others.
  checks::Known<bool> isRadioOn(const std::string& interface, const Patience& patience);
  // Nothing: done. notPermitted where this user may not; nobody is asked for a password.
  std::optional<checks::Unknown> setRadioOn(const std::string& interface, bool on,
                                            const Patience& patience);

 private:
  checks::Known<Kind> findKind(const std::string& interface, const Patience& patience);

  Bus& bus_;
  std::optional<Kind> kind_;
  std::string kindOf_;  // the interface
};

}  // namespace wifi_profile::machine
