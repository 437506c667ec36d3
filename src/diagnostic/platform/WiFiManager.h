// The Wi-Fi manager service: opaque handles with manual reference counting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"

namespace wifi_profile {

// Handles of objects that the service owns. Null: no object.
struct WiFiManagerClient;
struct WiFiDeviceClient;
struct WiFiDeviceList;
using WiFiManagerClientRef = WiFiManagerClient*;
using WiFiDeviceClientRef = WiFiDeviceClient*;
using WiFiDeviceListRef = WiFiDeviceList*;

// Called on the run loop that the manager is scheduled on, at every power change of the device. The
// context stays alive during the call.
using WiFiDevicePowerCallback = void (*)(WiFiDeviceClientRef device,
                                         const std::shared_ptr<void>& context);

// The service behind the operations below. Any thread.
class WiFiManagerService : public Interface {
 public:
  virtual int containsRadio() = 0;
  virtual WiFiManagerClientRef createClient(std::int32_t type) = 0;
  virtual void setType(WiFiManagerClientRef manager, std::int32_t type) = 0;
  virtual void scheduleWithRunLoop(WiFiManagerClientRef manager) = 0;
  virtual WiFiDeviceListRef copyDevices(WiFiManagerClientRef manager) = 0;
  virtual std::size_t deviceCount(WiFiDeviceListRef devices) = 0;
  virtual WiFiDeviceClientRef deviceAt(WiFiDeviceListRef devices, std::size_t index) = 0;
  virtual int getPower(WiFiManagerClientRef manager) = 0;
  virtual void setPower(WiFiManagerClientRef manager, int power) = 0;
  virtual void registerPowerCallback(WiFiDeviceClientRef device, WiFiDevicePowerCallback callback,
                                     std::weak_ptr<void> context) = 0;
  virtual void retain(WiFiDeviceClientRef device) = 0;
  virtual void release(WiFiManagerClientRef manager) = 0;
  virtual void release(WiFiDeviceClientRef device) = 0;
  virtual void release(WiFiDeviceListRef devices) = 0;
};

inline WiFiManagerService* installedWiFiManager() {
  return InstalledPlatform::get(&Platform::wifiManager, "the Wi-Fi manager");
}

// The operations. Each forwards to the installed service. No handle passed may be null.

// Returns non-zero if the device has a Wi-Fi radio.
inline int DorvexContainsRadio() { return installedWiFiManager()->containsRadio(); }

// Returns a new client with one reference that the caller owns, or null.
inline WiFiManagerClientRef WiFiManagerClientCreate(std::int32_t type) {
  return installedWiFiManager()->createClient(type);
}
inline void WiFiManagerClientSetType(WiFiManagerClientRef manager, std::int32_t type) {
  installedWiFiManager()->setType(manager, type);
}

// Delivers the events of the client on the run loop of the calling thread, in its default mode.
inline void WiFiManagerClientScheduleWithRunLoop(WiFiManagerClientRef manager) {
  installedWiFiManager()->scheduleWithRunLoop(manager);
}

// Returns the device list, which the caller releases. Null or empty if there is no device.
inline WiFiDeviceListRef WiFiManagerClientCopyDevices(WiFiManagerClientRef manager) {
  return installedWiFiManager()->copyDevices(manager);
}
inline std::size_t WiFiDeviceListGetCount(WiFiDeviceListRef devices) {
  return installedWiFiManager()->deviceCount(devices);
}

// Returns a device that the list owns. `index` must be less than the count.
inline WiFiDeviceClientRef WiFiDeviceListGetDevice(WiFiDeviceListRef devices, std::size_t index) {
  return installedWiFiManager()->deviceAt(devices, index);
}

// Returns non-zero if the radio is on.
inline int WiFiManagerClientGetPower(WiFiManagerClientRef manager) {
  return installedWiFiManager()->getPower(manager);
}

// Requests a change of the radio's power. The power callback reports when it has happened.
inline void WiFiManagerClientSetPower(WiFiManagerClientRef manager, int power) {
  installedWiFiManager()->setPower(manager, power);
}

// `context` is passed to the callback and is not kept alive. A notification is dropped if the
// context no longer exists or the device has been released.
inline void WiFiDeviceClientRegisterPowerCallback(WiFiDeviceClientRef device,
                                                  WiFiDevicePowerCallback callback,
                                                  std::weak_ptr<void> context) {
  installedWiFiManager()->registerPowerCallback(device, callback, std::move(context));
}

inline void retainWiFiHandle(WiFiDeviceClientRef device) { installedWiFiManager()->retain(device); }

// Releases one reference to the object of the handle.
template <class Handle>
void releaseWiFiHandle(Handle handle) {
  installedWiFiManager()->release(handle);
}

}  // namespace wifi_profile
