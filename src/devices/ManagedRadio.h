// The Wi-Fi manager of a device: handles, references and notifications. A derived class provides
// the radio, real or simulated.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "diagnostic/platform/Mutex.h"
#include "diagnostic/platform/WiFiManager.h"

namespace wifi_profile::devices {

// Gives out clients and device handles, and traces every operation. A handle that it
// did not give out, or that was released, has no power and gets no notifications. Any thread; power
// notifications arrive on the main thread.
class ManagedRadio : public WiFiManagerService, public std::enable_shared_from_this<ManagedRadio> {
 public:
  ~ManagedRadio() override;

  int containsRadio() final;
  WiFiManagerClientRef createClient(std::int32_t type) final;
  void setType(WiFiManagerClientRef manager, std::int32_t type) final;
  void scheduleWithRunLoop(WiFiManagerClientRef manager) final;
  WiFiDeviceListRef copyDevices(WiFiManagerClientRef manager) final;
  std::size_t deviceCount(WiFiDeviceListRef devices) final;
  WiFiDeviceClientRef deviceAt(WiFiDeviceListRef devices, std::size_t index) final;
  int getPower(WiFiManagerClientRef manager) final;
  void setPower(WiFiManagerClientRef manager, int power) final;
  void registerPowerCallback(WiFiDeviceClientRef device, WiFiDevicePowerCallback callback,
                             std::weak_ptr<void> context) final;
  void retain(WiFiDeviceClientRef device) final;
  void release(WiFiManagerClientRef manager) final;
  void release(WiFiDeviceClientRef device) final;
  void release(WiFiDeviceListRef devices) final;

  // Returns why the radio stayed off after the last request to switch it on, as a text for the
  // user. Empty if the radio did not stay off or the reason is not known yet. Any thread.
  std::string powerOnFailure() const;

 protected:
  explicit ManagedRadio(std::size_t deviceCount);

  // Posts a power notification to the main queue, for every callback that is registered when it
  // runs. Posts nothing if no callback is registered now. Any thread, also one that the radio's
  // destructor waits for.
  void postNotification();

  // Records why the radio could not be switched on. Any thread.
  void powerOnFailed(std::string reason);

 private:
  virtual bool hasRadio() = 0;
  virtual bool givesClients() = 0;
  virtual bool isPoweredOn() = 0;
  // Requests the power state; the derived class calls `postNotification` when it has changed.
  virtual void switchPower(bool on) = 0;
  // Called after a callback was registered: from now on, changes of power must be reported.
  virtual void beginWatching() {}

  void notify();
  bool isClient(WiFiManagerClientRef manager);

  struct State;
  mutable Mutex mutex_;
  const std::unique_ptr<State> state_ PT_GUARDED_BY(mutex_);
};

}  // namespace wifi_profile::devices
