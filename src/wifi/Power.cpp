// The Wi-Fi manager and the radio's power. State: `manager`, `device`, `wifiPoweredOn`.

#include "controller/ErrorLog.h"
#include "controller/StatusCodes.h"
#include "controller/WiFiProfileViewController.h"
#include "platform/WorkQueues.h"

namespace wifi_profile {
namespace {

constexpr std::int32_t kClientType = 0;

void logManagerError(const char* text) {
  DiagnosticLogHandleForCategory(kWiFiManagerLogCategory).error([text] {
    return std::string(text);
  });
}

void powerCallback(WiFiDeviceClientRef /*device*/, void* context) {
  const auto controller = static_cast<WiFiProfileViewController*>(context)->shared_from_this();
  static_cast<WiFiProfileViewController&>(*controller).powerChanged();
}

}  // namespace

bool WiFiProfileViewController::setupWiFi() {
  bool found = false;
  // Runs on this thread, the main one, so that it is this thread's run loop that the manager is
  // scheduled on.
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
    WiFiDeviceClientRegisterPowerCallback(first, powerCallback, self.get());
    releaseWiFiHandle(devices);
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
  displayNetworkList();
}

// Where the picker joins in: a host without one does not ask for it ("reprofileWithUI" NO).
void WiFiProfileViewController::presentWiFiPoweredOffAlert() {}
void WiFiProfileViewController::displayNetworkList() {}

}  // namespace wifi_profile
