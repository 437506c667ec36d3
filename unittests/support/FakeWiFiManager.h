// A Wi-Fi manager service that counts references.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "diagnostic/platform/WiFiManager.h"
#include "support/Events.h"

namespace wifi_profile {

// Hands out one manager and a list of up to two devices. What is done with them goes into the
// events; `references` counts what the caller owns of each.
class FakeWiFiManager final : public WiFiManagerService {
 public:
  explicit FakeWiFiManager(EventsRef events) : events_(std::move(events)) {}

  int radio = 1;
  bool makesClients = true;
  bool makesLists = true;
  std::size_t devices = 1;
  int power = 1;

  WiFiManagerClientRef manager() { return reinterpret_cast<WiFiManagerClientRef>(&manager_); }
  WiFiDeviceClientRef device(std::size_t index) {
    return reinterpret_cast<WiFiDeviceClientRef>(&devices_.at(index));
  }
  WiFiDeviceListRef list() { return reinterpret_cast<WiFiDeviceListRef>(&list_); }

  int references(const void* handle) const {
    const auto found = references_.find(handle);
    return found == references_.end() ? 0 : found->second;
  }

  // Delivers a power change to who registered for it.
  void changePower(int to) {
    power = to;
    if (const auto context = context_.lock()) callback_(registeredDevice, context);
  }
  WiFiDeviceClientRef registeredDevice = nullptr;

  int containsRadio() override {
    events_->add("contains radio");
    return radio;
  }
  WiFiManagerClientRef createClient(std::int32_t type) override {
    events_->add("create client of type " + std::to_string(type));
    if (!makesClients) return nullptr;
    ++references_[manager()];
    return manager();
  }
  void setType(WiFiManagerClientRef client, std::int32_t type) override {
    events_->add("set type " + std::to_string(type) + of(client));
  }
  void scheduleWithRunLoop(WiFiManagerClientRef client) override {
    events_->add("schedule" + of(client));
  }
  WiFiDeviceListRef copyDevices(WiFiManagerClientRef client) override {
    events_->add("copy devices" + of(client));
    if (!makesLists) return nullptr;
    ++references_[list()];
    return list();
  }
  std::size_t deviceCount(WiFiDeviceListRef /*list*/) override { return devices; }
  WiFiDeviceClientRef deviceAt(WiFiDeviceListRef /*list*/, std::size_t index) override {
    return device(index);
  }
  int getPower(WiFiManagerClientRef client) override {
    events_->add("get power" + of(client));
    return power;
  }
  void setPower(WiFiManagerClientRef client, int to) override {
    events_->add("set power " + std::to_string(to) + of(client));
  }
  void registerPowerCallback(WiFiDeviceClientRef registered, WiFiDevicePowerCallback callback,
                             std::weak_ptr<void> context) override {
    events_->add("register" + of(registered));
    registeredDevice = registered;
    callback_ = callback;
    context_ = std::move(context);
  }
  void retain(WiFiDeviceClientRef client) override {
    events_->add("retain" + of(client));
    ++references_[client];
  }
  void release(WiFiManagerClientRef client) override { giveUp(client); }
  void release(WiFiDeviceClientRef client) override { giveUp(client); }
  void release(WiFiDeviceListRef released) override { giveUp(released); }

 private:
  void giveUp(const void* handle) {
    events_->add("release" + of(handle));
    --references_[handle];
  }
  std::string of(const void* handle) {
    return handle == manager()   ? " manager"
           : handle == list()    ? " list"
           : handle == device(0) ? " device"
           : handle == device(1) ? " second device"
                                 : " unknown handle";
  }

  EventsRef events_;
  char manager_ = 0;
  char list_ = 0;
  std::array<char, 2> devices_{};
  std::map<const void*, int> references_;
  WiFiDevicePowerCallback callback_ = nullptr;
  std::weak_ptr<void> context_;
};

}  // namespace wifi_profile
