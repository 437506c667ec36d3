// The service that manages the interface's connections: NetworkManager, else iwd, else
// wpa_supplicant. An object finds the service once, and is made anew for each piece of work.
// Without such a service, and without a bus, every operation returns noService. An object belongs
// to one thread at a time.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/AirFacts.h"
#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/bus/ScanRequest.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::bus {

class ConnectionManager {
 public:
  // `system` must outlive this object.
  explicit ConnectionManager(Bus& system) : bus_(system) {}

  enum class Kind { networkManager, iwd, supplicant };
  Result<Kind> kind(const std::string& interface, const Deadline& deadline);

  // From NetworkManager; notTold with the others. notJoined: there is no connection.
  Result<facts::ActiveProfile> activeProfile(const std::string& interface,
                                             const Deadline& deadline);
  // From NetworkManager, IPv4 first; notTold with the others.
  Result<std::vector<std::string>> dnsServers(const std::string& interface,
                                              const Deadline& deadline);
  Result<std::vector<facts::SavedNetwork>> savedNetworks(const std::string& interface,
                                                         const Deadline& deadline);
  // When the manager's last scan of the interface ended. From NetworkManager; notTold with the
  // others.
  Result<LastScan> lastScan(const std::string& interface, const Deadline& deadline);
  // The access points that the manager lists. From NetworkManager; notTold with the others.
  Result<std::vector<facts::AccessPoint>> accessPoints(const std::string& interface,
                                                       const Deadline& deadline);
  // Requests a scan. Does not wait for its end.
  Result<ScanStart> requestScan(const std::string& interface, const Deadline& deadline);

  // Whether the manager's switch for all Wi-Fi is on. From NetworkManager; notSupported with the
  // others.
  Result<bool> isRadioOn(const std::string& interface, const Deadline& deadline);
  // Sets that switch. notPermitted: this user may not. The service does not ask for a
  // password.
  Status setRadioOn(const std::string& interface, bool on, const Deadline& deadline);

 private:
  Result<Kind> findKind(const std::string& interface, const Deadline& deadline);

  Bus& bus_;
  std::optional<Kind> kind_;
  std::string kindOf_;  // the interface that `kind_` belongs to
};

}  // namespace wifi_profile::linux::bus
