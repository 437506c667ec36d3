// The Wi-Fi manager of this machine: switches the radio on and reports changes of its power.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>

#include "devices/ManagedRadio.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/Rfkill.h"
#include "devices/linux/bus/Bus.h"

namespace wifi_profile::linux {

// One radio. Changes of its switches are reported whatever their cause; a thread waits for them
// from the first registration of a callback on. A removed radio counts as off. The state of a radio
// without switches comes from the connection manager; without one, the radio counts as on. If the
// switches send no events, the radio keeps its initial state until the manager has switched it on.
class LinuxRadio final : public devices::ManagedRadio {
 public:
  LinuxRadio(std::string interface, std::shared_ptr<bus::Bus> systemBus, Rfkill rfkill);
  ~LinuxRadio() override;

 private:
  bool hasRadio() override { return true; }  // an object of this class has a radio
  bool givesClients() override { return true; }
  bool isPoweredOn() override { return on_; }
  void switchPower(bool on) override;
  void beginWatching() override;

  void watch(const std::stop_token& ended);
  void switchOn();
  void tellByItself();

  const std::string interface_;
  const std::shared_ptr<bus::Bus> bus_;
  Rfkill rfkill_;  // belongs to the watching thread once that runs; without events never changes
  std::atomic<bool> on_ = true;
  std::stop_source ended_;
  std::once_flag watching_;
  std::jthread watcher_;
};

}  // namespace wifi_profile::linux
