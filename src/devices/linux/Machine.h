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
  // The interface of this name; with an empty one, that to use first. noHardware: there is none.
  static std::variant<std::shared_ptr<Machine>, checks::Unknown> open(const std::string& interface);

  const WifiInterface& interface() const { return interface_; }
  // The one connection to the bus of the system, and that to the session's.
  const std::shared_ptr<Bus>& systemBus() const { return systemBus_; }
  const std::shared_ptr<Bus>& sessionBus() const { return sessionBus_; }

  checks::Known<checks::Link> link(const Patience& patience) const;
  // Without its interfaces.
  checks::Known<checks::Radio> abilities(const Patience& patience) const;

  // A scan no older than `oldest`; with 0 a new one. Of a new scan the list has what was heard
  // since it began, or up to `oldest` before that; of an earlier one, what the kernel still keeps.
  // Waits some seconds for a radio that was just switched on. Where no new scan can be made, the
  // list is what the kernel and the connection manager have; it is incomplete unless the manager's
  // last scan is young enough.
  checks::Known<ScanList> scan(std::chrono::seconds oldest, const Patience& patience) const;

 private:
  explicit Machine(WifiInterface interface) : interface_(std::move(interface)) {}

  checks::Known<ScanList> withoutNewScan(Nl80211& kernel, std::chrono::seconds oldest,
                                         const checks::Unknown& why,
                                         const Patience& patience) const;
  std::optional<std::chrono::nanoseconds> sinceManagersScan(const Patience& patience) const;
  // Whether the kernel's list is of a scan that is no older than that, and still has all of it.
  bool isYoung(const ScanList& list, std::chrono::seconds oldest, const Patience& patience) const;
  // Start of the scan, as time since boot.
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
