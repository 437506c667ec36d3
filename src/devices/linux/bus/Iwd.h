// What iwd knows. Any thread; reasons as in NetworkManager.h.
#pragma once

#include <string>
#include <vector>

#include "checks/DeviceFacts.h"
#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/bus/ScanRequest.h"

namespace wifi_profile::machine {

// Pure; `objects` is what ObjectManager.GetManagedObjects returned, a{oa{sa{sv}}}.
std::vector<checks::SavedNetwork> savedNetworksFromIwd(const BusValue& objects);

class Iwd {
 public:
  // `system` lives longer.
  explicit Iwd(Bus& system) : bus_(system) {}

  // Whether it is running and has a station on that interface.
  checks::Known<bool> manages(const std::string& interface, const Patience& patience);
  checks::Known<std::vector<checks::SavedNetwork>> savedNetworks(const Patience& patience);
  checks::Known<ScanStart> requestScan(const std::string& interface, const Patience& patience);

 private:
  struct Objects {
    std::string owner;
    BusValue objects;
  };
  checks::Known<Objects> objects(const Patience& patience);

  Bus& bus_;
};

}  // namespace wifi_profile::machine
