// Reads facts from NetworkManager. Any thread. Each operation looks the service up again, so it
// also reaches a restarted one. Reasons: noService (not running, or it disappeared before it
// answered), notPermitted, tookTooLong (deadline passed, or cancelled), noHardware (it does not
// know the interface), failed.
#pragma once

#include <chrono>
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

class NetworkManager {
 public:
  // `system` must outlive this object.
  explicit NetworkManager(Bus& system) : bus_(system) {}

  // Whether NetworkManager manages that interface, and so its scans and profiles; noService if it
  // is not running.
  Result<bool> manages(const std::string& interface, const Deadline& deadline);

  // Returns the profile of the interface's connection; notJoined: there is none.
  Result<facts::ActiveProfile> activeProfile(const std::string& interface,
                                             const Deadline& deadline);
  // Returns the link's servers, IPv4 first; notJoined: the interface has no configuration.
  Result<std::vector<std::string>> dnsServers(const std::string& interface,
                                              const Deadline& deadline);
  // Returns the profiles of all interfaces, at most kLongestBusList. A profile that this user may
  // not read is left out. notPermitted: this user may read none of them.
  Result<std::vector<facts::SavedNetwork>> savedNetworks(const Deadline& deadline);

  // Returns when the last scan of the interface ended, on CLOCK_BOOTTIME; empty: there was none.
  Result<LastScan> lastScan(const std::string& interface, const Deadline& deadline);
  // Returns the access points listed for the interface, parsed by `accessPointFrom`; at most
  // kLongestBusList.
  Result<std::vector<facts::AccessPoint>> accessPoints(const std::string& interface,
                                                       const Deadline& deadline);
  // Requests a scan. Does not wait for its end (see `lastScan`).
  Result<ScanStart> requestScan(const std::string& interface, const Deadline& deadline);

  // The software switch of all Wi-Fi. Reading it needs no privileges.
  Result<bool> isWirelessEnabled(const Deadline& deadline);
  // Sets the software switch. notPermitted: polkit refuses this user; it does not ask
  // for a password.
  Status setWirelessEnabled(bool enabled, const Deadline& deadline);

 private:
  struct Device {
    std::string owner;    // unique name of the service
    std::string path;     // path of the interface's object
    BusValue properties;  // a{sv}
  };
  Result<std::string> owner(const Deadline& deadline);
  Result<Device> device(const std::string& interface, const Deadline& deadline);

  Bus& bus_;
};

}  // namespace wifi_profile::linux::bus
