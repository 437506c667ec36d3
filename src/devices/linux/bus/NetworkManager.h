// What NetworkManager knows. Any thread; each function asks anew, so a manager that was restarted
// is asked again by the next call. Why something is not known: noService (not running, or it went
// away while it was asked), notPermitted, tookTooLong (deadline, or called off), noHardware (it
// does not know the interface), failed.
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
  // `system` lives longer.
  explicit NetworkManager(Bus& system) : bus_(system) {}

  // Whether it is running and takes care of that interface, and so of its scans and profiles.
  checks::Known<bool> manages(const std::string& interface, const Patience& patience);

  // The profile that the interface is joined with; notJoined where there is none.
  checks::Known<checks::ActiveProfile> activeProfile(const std::string& interface,
                                                     const Patience& patience);
  // Of the link, IPv4 first; notJoined where the interface has no configuration.
  checks::Known<std::vector<std::string>> dnsServers(const std::string& interface,
                                                     const Patience& patience);
  // Of all interfaces; at most kLongestBusList. A profile that this user may not read is left
  // out; notPermitted where that is all of them.
  checks::Known<std::vector<checks::SavedNetwork>> savedNetworks(const Patience& patience);

  // When the last scan of the interface ended, on CLOCK_BOOTTIME; nothing: it never did.
  checks::Known<LastScan> lastScan(const std::string& interface, const Patience& patience);
  // The access points that it lists for the interface, as `accessPointFrom` reads them; at most
  // kLongestBusList.
  checks::Known<std::vector<checks::AccessPoint>> accessPoints(const std::string& interface,
                                                               const Patience& patience);
  // Asks for a scan; does not wait for its end (see `lastScan`).
  checks::Known<ScanStart> requestScan(const std::string& interface, const Patience& patience);

  // The software switch of all Wi-Fi, and the hardware's. Reading them needs no privileges.
  checks::Known<bool> isWirelessEnabled(const Patience& patience);
  checks::Known<bool> isWirelessHardwareEnabled(const Patience& patience);
  // notPermitted where polkit does not let this user; nobody is asked for a password. Nothing:
  // done.
  std::optional<checks::Unknown> setWirelessEnabled(bool enabled, const Patience& patience);

 private:
  struct Device {
    std::string owner;    // of NetworkManager's name
    std::string path;     // of the interface's object
    BusValue properties;  // a{sv}
  };
  checks::Known<std::string> owner(const Patience& patience);
  checks::Known<Device> device(const std::string& interface, const Patience& patience);
  checks::Known<bool> managerFlag(const char* property, const Patience& patience);

  Bus& bus_;
};

}  // namespace wifi_profile::machine
