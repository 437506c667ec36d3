// This machine's Wi-Fi.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "devices/linux/bus/Bus.h"
#include "devices/linux/netlink/Nl80211.h"

namespace wifi_profile::linux {

// One Wi-Fi interface of this machine. Any thread.
class WifiDevice final {
 public:
  // Opens the Wi-Fi interface of this name. An empty name selects the first network interface in
  // the order of Nl80211::interfaces. noHardware: there is no such interface.
  static Result<std::shared_ptr<const WifiDevice>> open(const std::string& interface);

  const netlink::WifiInterface& interface() const { return interface_; }
  // The shared connections to the system bus and to the session bus.
  const std::shared_ptr<bus::Bus>& systemBus() const { return systemBus_; }
  const std::shared_ptr<bus::Bus>& sessionBus() const { return sessionBus_; }

  Result<facts::Link> link(const Deadline& deadline) const;
  // Returns the radio without its interfaces.
  Result<facts::Radio> abilities(const Deadline& deadline) const;

  // Returns a scan no older than `oldest`; 0 requests a new scan. The list of a new scan holds the
  // access points heard since the scan began or up to `oldest` before that; the list of an earlier
  // scan holds what the kernel still keeps. Waits some seconds for a radio that was just switched
  // on. If no new scan can be made, the list holds what the kernel and the connection manager have;
  // it is marked incomplete unless the manager's last scan is no older than `oldest`.
  Result<netlink::ScanList> scan(std::chrono::seconds oldest, const Deadline& deadline) const;

 private:
  explicit WifiDevice(netlink::WifiInterface interface) : interface_(std::move(interface)) {}

  Result<netlink::ScanList> withoutNewScan(netlink::Nl80211& kernel, std::chrono::seconds oldest,
                                           const Error& why, const Deadline& deadline) const;
  std::optional<std::chrono::nanoseconds> sinceManagersScan(const Deadline& deadline) const;
  // Whether the list comes from a scan no older than `oldest` and is still complete.
  bool isYoung(const netlink::ScanList& list, std::chrono::seconds oldest,
               const Deadline& deadline) const;
  // When the scan began, as time since boot.
  using Began = Result<std::chrono::nanoseconds>;
  Began makeScan(netlink::Nl80211& kernel, const Deadline& deadline) const;
  Began tryScan(netlink::Nl80211& kernel, const Deadline& deadline) const;
  Began scanByManager(netlink::Nl80211& kernel, const Deadline& deadline) const;
  bool isSwitchedOff() const;

  const netlink::WifiInterface interface_;
  const std::shared_ptr<bus::Bus> systemBus_ = bus::Bus::system();
  const std::shared_ptr<bus::Bus> sessionBus_ = bus::Bus::session();
};

}  // namespace wifi_profile::linux
