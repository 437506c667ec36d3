// The Wi-Fi manager of a device on paper.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <set>

#include "devices/scenario/Scenario.h"
#include "platform/Trace.h"
#include "platform/WiFiManager.h"
#include "platform/WorkQueues.h"

namespace wifi_profile::scenario {

// A radio with its manager's clients and device handles. Handles must be ones that it gave out and
// that were not released since. Any thread; power notifications come on the main thread.
class ScenarioRadio final : public WiFiManagerService,
                            public std::enable_shared_from_this<ScenarioRadio> {
 public:
  // `trace` must outlive the radio.
  ScenarioRadio(const DeviceSettings& device, Trace& trace);
  ~ScenarioRadio() override;

  // The radio is switched from outside: a notification is posted to the main queue, also when the
  // radio was in that state already.
  void switchFromOutside(bool on);

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
  struct State;
  void postNotification();

  Trace& trace_;
  std::mutex mutex_;  // guards the state
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile::scenario
