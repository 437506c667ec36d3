// What wpa_supplicant knows where it works alone. It must offer its D-Bus interface (-u). Any
// thread; reasons as in NetworkManager.h.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/bus/ScanRequest.h"

namespace wifi_profile::machine {

// One network of its, from the property Properties, a{sv} in the words of its configuration file.
// Nothing where that has no name of 1 to 32 bytes. Pure.
std::optional<checks::SavedNetwork> savedNetworkFromSupplicant(const BusValue& properties);

class Supplicant {
 public:
  // `system` lives longer.
  explicit Supplicant(Bus& system) : bus_(system) {}

  // Whether it is running and takes care of that interface.
  checks::Known<bool> manages(const std::string& interface, const Patience& patience);
  // Of that interface.
  checks::Known<std::vector<checks::SavedNetwork>> savedNetworks(const std::string& interface,
                                                                 const Patience& patience);
  checks::Known<ScanStart> requestScan(const std::string& interface, const Patience& patience);

 private:
  struct Object {
    std::string owner;
    std::string path;  // of the interface
  };
  checks::Known<Object> find(const std::string& interface, const Patience& patience);

  Bus& bus_;
};

}  // namespace wifi_profile::machine
