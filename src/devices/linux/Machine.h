// This machine: who finds its facts out.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "devices/linux/LinuxService.h"
#include "devices/linux/Targets.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/netlink/Nl80211.h"

namespace wifi_profile::machine {

// One Wi-Fi interface of this machine. Any thread.
class Machine final : public FactFinder {
 public:
  // The interface of this name; with an empty one, that to use first. noHardware: there is none.
  static std::variant<std::shared_ptr<Machine>, checks::Unknown> open(const std::string& interface,
                                                                      Targets targets);

  const WifiInterface& interface() const { return interface_; }
  // The one connection to the bus of the system.
  const std::shared_ptr<Bus>& systemBus() const { return systemBus_; }

  checks::Known<checks::Link> link(const Patience& patience) override;
  checks::Known<checks::Scan> scan(std::chrono::seconds oldest, const Patience& patience) override;
  std::vector<Errand> errands(std::chrono::seconds oldestScan) override;

  checks::Known<checks::Radio> radio(const Patience& patience);

 private:
  Machine(WifiInterface interface, Targets targets);

  // Whether the kernel's list is of a scan that is no older than that.
  bool isYoung(const ScanList& list, std::chrono::seconds oldest, const Patience& patience);
  NotDone makeScan(Nl80211& kernel, const Patience& patience);
  void addKernelErrands(std::vector<Errand>& all, std::chrono::seconds oldestScan);
  void addServiceErrands(std::vector<Errand>& all);
  Found findConnection(const Patience& patience);

  const WifiInterface interface_;
  const Targets targets_;
  const std::shared_ptr<Bus> systemBus_ = Bus::system();
};

}  // namespace wifi_profile::machine
