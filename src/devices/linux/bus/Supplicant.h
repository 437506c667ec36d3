// Reads facts from wpa_supplicant when no other manager controls it. It must offer its D-Bus
// interface (-u). Any thread; reasons as in NetworkManager.h.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/bus/ScanRequest.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::bus {

// Parses a network's property Properties, a{sv} with values as in the configuration file. Empty
// without a name of 1 to 32 bytes. Pure.
std::optional<facts::SavedNetwork> savedNetworkFromSupplicant(const BusValue& properties);

class Supplicant {
 public:
  // `system` must outlive this object.
  explicit Supplicant(Bus& system) : bus_(system) {}

  // Whether wpa_supplicant manages that interface; noService if it is not running.
  Result<bool> manages(const std::string& interface, const Deadline& deadline);
  // Returns the networks of that interface.
  Result<std::vector<facts::SavedNetwork>> savedNetworks(const std::string& interface,
                                                         const Deadline& deadline);
  Result<ScanStart> requestScan(const std::string& interface, const Deadline& deadline);

 private:
  struct Object {
    std::string owner;
    std::string path;  // of the interface
  };
  Result<Object> find(const std::string& interface, const Deadline& deadline);

  Bus& bus_;
};

}  // namespace wifi_profile::linux::bus
