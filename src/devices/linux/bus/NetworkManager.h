// Reads facts from NetworkManager. Any thread. Each operation looks the service up again, so it
// also reaches a restarted one. Reasons: noService (not running, or it disappeared before it
// answered), notPermitted, tookTooLong (deadline passed, or cancelled), noHardware (it does not
// know the interface), failed.
#pragma once

#include <chrono>
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

class NetworkManager {
 public:
  // `system` must outlive this object.
  explicit NetworkManager(Bus& system) : bus_(system) {}

  // Whether NetworkManager manages that interface, and so its scans and profiles; noService if it
  // is not running.
  checks::Known<bool> manages(const std::string& interface, const Patience& patience);

  // Returns the profile of the interface's connection; notJoined: there is none.
  checks::Known<checks::ActiveProfile> activeProfile(const std::string& interface,
                                                     const Patience& patience);
  // Returns the link's servers, IPv4 first; notJoined: the interface has no configuration.
  checks::Known<std::vector<std::string>> dnsServers(const std::string& interface,
                                                     const Patience& patience);
  // Returns the profiles of all interfaces, at most kLongestBusList. A profile that this user may
  // not read is left out. notPermitted: this user may read none of them.
  checks::Known<std::vector<checks::SavedNetwork>> savedNetworks(const Patience& patience);

  // Returns when the last scan of the interface ended, on CLOCK_BOOTTIME; empty: there was none.
  checks::Known<LastScan> lastScan(const std::string& interface, const Patience& patience);
  // Returns the access points listed for the interface, parsed by `accessPointFrom`; at most
  // kLongestBusList.
  checks::Known<std::vector<checks::AccessPoint>> accessPoints(const std::string& interface,
                                                               const Patience& patience);
  // Requests a scan. Does not wait for its end (see `lastScan`).
  checks::Known<ScanStart> requestScan(const std::string& interface, const Patience& patience);

  // The software switch and the hardware switch of all Wi-Fi. Reading them needs no privileges.
  checks::Known<bool> isWirelessEnabled(const Patience& patience);
  checks::Known<bool> isWirelessHardwareEnabled(const Patience& patience);
  // Sets the software switch. Empty: done. notPermitted: polkit refuses this user; it does not ask
  // for a password.
  std::optional<checks::Unknown> setWirelessEnabled(bool enabled, const Patience& patience);

 private:
  struct Device {
    std::string owner;    // unique name of the service
    std::string path;     // path of the interface's object
    BusValue properties;  // a{sv}
  };
  checks::Known<std::string> owner(const Patience& patience);
  checks::Known<Device> device(const std::string& interface, const Patience& patience);
  checks::Known<bool> managerFlag(const char* property, const Patience& patience);

  Bus& bus_;
};

}  // namespace wifi_profile::machine
