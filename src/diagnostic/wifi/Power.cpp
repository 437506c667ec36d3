// The Wi-Fi manager and the power of the radio. State: `manager`, `device`, `wifiPoweredOn`.

#include "diagnostic/controller/ErrorLog.h"
#include "diagnostic/controller/StatusCodes.h"
#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/DeviceCapability.h"
#include "diagnostic/platform/StringTable.h"
#include "diagnostic/platform/WorkQueues.h"
#include "diagnostic/platform/toolkit/Alert.h"

namespace wifi_profile {
namespace {

constexpr std::int32_t kClientType = 0;

void logManagerError(const char* text) {
  DiagnosticLogHandleForCategory(kWiFiManagerLogCategory).error([text] {
    return std::string(text);
  });
}

void powerCallback(WiFiDeviceClientRef /*device*/, const std::shared_ptr<void>& context) {
  static_cast<WiFiProfileViewController*>(context.get())->powerChanged();
}

class DeviceListReleaser final {
 public:
  explicit DeviceListReleaser(WiFiDeviceListRef devices) : devices_(devices) {}
  DeviceListReleaser(const DeviceListReleaser&) = delete;
  DeviceListReleaser& operator=(const DeviceListReleaser&) = delete;
  ~DeviceListReleaser() {
    if (devices_) releaseWiFiHandle(devices_);
  }

 private:
  WiFiDeviceListRef devices_;
};

}  // namespace

bool WiFiProfileViewController::setupWiFi() {
  bool found = false;
  // The work runs on this thread, the main thread, so that the manager is scheduled on its run
  // loop.
  WorkQueues::shared()->runOnGlobalAndWait([self = self(), &found] {
    if (DorvexContainsRadio() != 0) self->manager.set(WiFiManagerClientCreate(kClientType));
    const WiFiManagerClientRef client = self->manager();
    if (!client) {
      logManagerError("WiFiManagerClientCreate failed - unable to get Wi-Fi manager handle.");
      self->endTestWithStatusCode(Number::withInteger(kStatusNoWiFiManager));
      return;
    }
    WiFiManagerClientScheduleWithRunLoop(client);
    WiFiManagerClientSetType(client, kClientType);
    const WiFiDeviceListRef devices = WiFiManagerClientCopyDevices(client);
    const DeviceListReleaser releaser(devices);  // releases the list last, on both paths
    if (!devices || WiFiDeviceListGetCount(devices) == 0) {
      logManagerError("[ERROR] - Couldn't find a Wi-Fi device.");
      releaseWiFiHandle(client);
      self->manager.set(nullptr);
      self->endTestWithStatusCode(Number::withInteger(kStatusNoWiFiDevice));
      return;
    }
    found = true;
    const WiFiDeviceClientRef first = WiFiDeviceListGetDevice(devices, 0);
    self->device.set(first);
    retainWiFiHandle(first);
    self->wifiPoweredOn.set(WiFiManagerClientGetPower(client) != 0);
    WiFiDeviceClientRegisterPowerCallback(first, powerCallback, self);
  });
  return found;
}

void WiFiProfileViewController::powerChanged() {
  const WiFiManagerClientRef client = manager();
  wifiPoweredOn.set(client && WiFiManagerClientGetPower(client) != 0);
  if (!wifiPoweredOn()) {
    endTestWithStatusCode(Number::withInteger(kStatusWiFiSwitchedOff));
    return;
  }
  showSpinner();
  displayNetworkList();
}

void WiFiProfileViewController::presentWiFiPoweredOffAlert() {
  const bool saysWLAN = (QdGetBoolAnswer("wapi") & 1) != 0;
  const auto alert = std::make_shared<toolkit::Alert>(
      localizedString(saysWLAN ? "POWER_ON_WLAN" : "POWER_ON_WIFI"));
  alert->addAction(std::make_shared<toolkit::AlertAction>(
      localizedString("NO"), toolkit::ActionStyle::standard, whileAlive([](auto& self) {
        self.endTestWithStatusCode(Number::withInteger(kStatusPowerOnDeclined));
      })));
  alert->addAction(std::make_shared<toolkit::AlertAction>(
      localizedString("YES"), toolkit::ActionStyle::standard, whileAlive([](auto& self) {
        if (const auto client = self.manager()) WiFiManagerClientSetPower(client, 1);
      })));
  present(alert, true);
}

}  // namespace wifi_profile
