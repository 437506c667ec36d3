// Reads facts from iwd. Any thread; reasons as in NetworkManager.h.
#pragma once

#include <string>
#include <vector>

#include "analysis/facts/DeviceFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/bus/ScanRequest.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::bus {

// Returns the known networks in the answer of ObjectManager.GetManagedObjects, a{oa{sa{sv}}}. Pure.
std::vector<facts::SavedNetwork> savedNetworksFromIwd(const BusValue& objects);

class Iwd {
 public:
  // `system` must outlive this object.
  explicit Iwd(Bus& system) : bus_(system) {}

  // Whether iwd has a station on that interface; noService if it is not running.
  Result<bool> manages(const std::string& interface, const Deadline& deadline);
  Result<std::vector<facts::SavedNetwork>> savedNetworks(const Deadline& deadline);
  Result<ScanStart> requestScan(const std::string& interface, const Deadline& deadline);

 private:
  struct Objects {
    std::string owner;
    BusValue objects;
  };
  Result<Objects> objects(const Deadline& deadline);

  Bus& bus_;
};

}  // namespace wifi_profile::linux::bus
