// The Wi-Fi manager of this machine: the radio's switches.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "devices/ManagedRadio.h"
#include "devices/linux/Patience.h"
#include "devices/linux/Rfkill.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::machine {

// One radio. Its switches tell of changes by themselves, by whatever they were turned; a thread
// waits for that from the first registration of a callback on. A radio that was taken out counts as
// off. One without switches counts as the connection manager says, else as on; one without news of
// its switches as they were in the beginning, until the manager has switched it on.
class LinuxRadio final : public ManagedRadio {
 public:
  // `trace` must outlive the radio.
  LinuxRadio(std::string interface, std::shared_ptr<Bus> systemBus, Trace& trace, Rfkill rfkill);
  ~LinuxRadio() override;

 private:
  bool hasRadio() override { return true; }  // there is no object of this class without
  bool givesClients() override { return true; }
  bool isPoweredOn() override { return on_; }
  void switchPower(bool on) override;
  void beginWatching() override;

  void watch();
  void switchOn();
  void tellByItself();

  const std::string interface_;
  const std::shared_ptr<Bus> bus_;
  Rfkill rfkill_;  // of the watching thread, once there is one; without news it stays as it is
  std::atomic<bool> on_ = true;
  Cancellation ended_;
  std::once_flag watching_;
  std::thread watcher_;
};

}  // namespace wifi_profile::machine
