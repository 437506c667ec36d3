// A Wi-Fi manager that holds its callers to the rules of its handles.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "diagnostic/platform/WiFiManager.h"
#include "diagnostic/platform/WorkQueues.h"
#include "simulation/History.h"
#include "simulation/World.h"

namespace wifi_profile::simulation {

// Every handle that it is passed must be one that it gave out and that its caller still owns; the
// manager goes before the device. Handles stay until the radio goes, so that a late use is seen.
// Any thread; power notifications come on the main thread.
class SimulatedRadio final : public WiFiManagerService,
                             public std::enable_shared_from_this<SimulatedRadio> {
 public:
  // All must outlive the radio.
  SimulatedRadio(World& world, WorkQueues& queues, History& history);
  ~SimulatedRadio() override;

  // Called on the main thread before and after a notification is delivered, with the power that it
  // tells of.
  std::function<void(bool on)> whenToBeNotified = [](bool) {};
  std::function<void(bool on)> whenNotified = [](bool) {};

  // The one who may be told of power changes.
  void expectListener(std::weak_ptr<void> listener) { listener_ = std::move(listener); }

  // The radio is switched from outside; a notification follows, also when nothing has changed.
  void switchFromOutside(bool on);

  // Whether a manager or a device is owned by the caller now.
  bool ownsClients() const;
  // The same, or a list.
  bool ownsAnything() const;

  int containsRadio() override;
  WiFiManagerClientRef createClient(std::int32_t type) override;
  void setType(WiFiManagerClientRef manager, std::int32_t type) override;
  void scheduleWithRunLoop(WiFiManagerClientRef manager) override;
  WiFiDeviceListRef copyDevices(WiFiManagerClientRef manager) override;
  std::size_t deviceCount(WiFiDeviceListRef devices) override;
  WiFiDeviceClientRef deviceAt(WiFiDeviceListRef devices, std::size_t index) override;
  int getPower(WiFiManagerClientRef manager) override;
  void setPower(WiFiManagerClientRef manager, int power) override;
  void registerPowerCallback(WiFiDeviceClientRef device, WiFiDevicePowerCallback callback,
                             std::weak_ptr<void> context) override;
  void retain(WiFiDeviceClientRef device) override;
  void release(WiFiManagerClientRef manager) override;
  void release(WiFiDeviceClientRef device) override;
  void release(WiFiDeviceListRef devices) override;

 private:
  void notifySoon(std::chrono::nanoseconds delay);
  void notify();
  void checkManager(WiFiManagerClientRef manager, const char* operation);
  void checkDevice(WiFiDeviceClientRef device, const char* operation);
  void checkList(WiFiDeviceListRef devices, const char* operation);

  World& world_;
  WorkQueues& queues_;
  History& history_;
  std::weak_ptr<void> listener_;
  mutable std::mutex mutex_;  // guards what follows
  bool power_;
  std::vector<std::unique_ptr<WiFiManagerClient>> managers_;
  std::vector<std::unique_ptr<WiFiDeviceClient>> devices_;
  std::vector<std::unique_ptr<WiFiDeviceList>> lists_;
};

}  // namespace wifi_profile::simulation
