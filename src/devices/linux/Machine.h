// This machine's Wi-Fi.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <variant>

#include "devices/linux/bus/Bus.h"
#include "devices/linux/netlink/Nl80211.h"

namespace wifi_profile::machine {

// One Wi-Fi interface of this machine. Any thread.
class Machine final {
 public:
  // Opens the Wi-Fi interface of this name. An empty name selects the first network interface in
  // the order of Nl80211::interfaces. noHardware: there is no such interface.
  static std::variant<std::shared_ptr<Machine>, checks::Unknown> open(const std::string& interface);

  const WifiInterface& interface() const { return interface_; }
  // The shared connections to the system bus and to the session bus.
  const std::shared_ptr<Bus>& systemBus() const { return systemBus_; }
  const std::shared_ptr<Bus>& sessionBus() const { return sessionBus_; }

  checks::Known<checks::Link> link(const Patience& patience) const;
  // Returns the radio without its interfaces.
  checks::Known<checks::Radio> abilities(const Patience& patience) const;

  // Returns a scan no older than `oldest`; 0 requests a new scan. The list of a new scan holds the
  // access points heard since the scan began or up to `oldest` before that; the list of an earlier
  // scan holds what the kernel still keeps. Waits some seconds for a radio that was just switched
  // on. If no new scan can be made, the list holds what the kernel and the connection manager have;
  // it is marked incomplete unless the manager's last scan is no older than `oldest`.
  checks::Known<ScanList> scan(std::chrono::seconds oldest, const Patience& patience) const;

 private:
  explicit Machine(WifiInterface interface) : interface_(std::move(interface)) {}

  checks::Known<ScanList> withoutNewScan(Nl80211& kernel, std::chrono::seconds oldest,
                                         const checks::Unknown& why,
                                         const Patience& patience) const;
  std::optional<std::chrono::nanoseconds> sinceManagersScan(const Patience& patience) const;
  // Whether the list comes from a scan no older than `oldest` and is still complete.
  bool isYoung(const ScanList& list, std::chrono::seconds oldest, const Patience& patience) const;
  // When the scan began, as time since boot.
  using Began = checks::Known<std::chrono::nanoseconds>;
  Began makeScan(Nl80211& kernel, const Patience& patience) const;
  Began tryScan(Nl80211& kernel, const Patience& patience) const;
  Began scanByManager(Nl80211& kernel, const Patience& patience) const;
  bool isSwitchedOff() const;

  const WifiInterface interface_;
  const std::shared_ptr<Bus> systemBus_ = Bus::system();
  const std::shared_ptr<Bus> sessionBus_ = Bus::session();
};

}  // namespace wifi_profile::machine
