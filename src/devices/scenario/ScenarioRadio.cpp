#include "devices/scenario/ScenarioRadio.h"

#include <algorithm>
#include <vector>

#include "platform/Number.h"
#include "platform/Text.h"

namespace wifi_profile {

// The handles' far ends.
struct WiFiManagerClient {};
struct WiFiDeviceClient {
  int references = 0;  // of lists and of clients
  WiFiDevicePowerCallback callback = nullptr;
  std::weak_ptr<void> context;
};
struct WiFiDeviceList {
  std::vector<WiFiDeviceClientRef> devices;
};

namespace scenario {

struct ScenarioRadio::State {
  DeviceSettings settings;
  bool power;
  std::vector<std::unique_ptr<WiFiDeviceClient>> devices;
  std::vector<std::unique_ptr<WiFiManagerClient>> clients;
  std::vector<std::unique_ptr<WiFiDeviceList>> lists;
};

namespace {

template <class T>
bool drop(std::vector<std::unique_ptr<T>>& owned, const T* handle) {
  return std::erase_if(owned, [handle](const auto& one) { return one.get() == handle; }) > 0;
}

// A device that nobody refers to any more tells nobody of its power.
void dropReference(WiFiDeviceClient& device) {
  if (device.references > 0 && --device.references == 0) device.callback = nullptr;
}

NumberRef integer(std::int64_t value) { return Number::withInteger(value); }

}  // namespace

ScenarioRadio::ScenarioRadio(const DeviceSettings& device, Trace& trace)
    : trace_(trace), state_(std::make_unique<State>()) {
  state_->settings = device;
  state_->power = device.power;
  for (std::size_t i = 0; i < device.interfaces.size(); ++i) {
    state_->devices.push_back(std::make_unique<WiFiDeviceClient>());
  }
}

ScenarioRadio::~ScenarioRadio() = default;

void ScenarioRadio::switchFromOutside(bool on) {
  {
    const std::lock_guard lock(mutex_);
    state_->power = on;
  }
  postNotification();
}

void ScenarioRadio::postNotification() {
  WorkQueues::shared()->postToMain([self = shared_from_this()] {
    struct Listener {
      WiFiDeviceClientRef device;
      WiFiDevicePowerCallback callback;
      std::shared_ptr<void> context;
    };
    std::vector<Listener> listeners;
    {
      const std::lock_guard lock(self->mutex_);
      if (self->state_->clients.empty()) return;
      for (const auto& device : self->state_->devices) {
        auto context = device->context.lock();
        if (!device->callback || !context) continue;
        listeners.push_back({device.get(), device->callback, std::move(context)});
      }
    }
    for (const Listener& listener : listeners) {
      self->trace_.event("device.power", {});
      listener.callback(listener.device, listener.context);
    }
  });
}

int ScenarioRadio::containsRadio() {
  const int answer = state_->settings.radio ? 1 : 0;
  trace_.event("manager.containsRadio", {{"answer", integer(answer)}});
  return answer;
}

WiFiManagerClientRef ScenarioRadio::createClient(std::int32_t type) {
  const bool made = state_->settings.manager;
  trace_.event("manager.create", {{"type", integer(type)}, {"made", Number::withBool(made)}});
  if (!made) return nullptr;
  const std::lock_guard lock(mutex_);
  state_->clients.push_back(std::make_unique<WiFiManagerClient>());
  return state_->clients.back().get();
}

void ScenarioRadio::setType(WiFiManagerClientRef /*manager*/, std::int32_t type) {
  trace_.event("manager.setType", {{"type", integer(type)}});
}

void ScenarioRadio::scheduleWithRunLoop(WiFiManagerClientRef /*manager*/) {
  trace_.event("manager.schedule", {{"mode", makeText("default")}});
}

WiFiDeviceListRef ScenarioRadio::copyDevices(WiFiManagerClientRef /*manager*/) {
  const std::lock_guard lock(mutex_);
  auto list = std::make_unique<WiFiDeviceList>();
  for (const auto& device : state_->devices) {
    ++device->references;
    list->devices.push_back(device.get());
  }
  trace_.event("manager.copyDevices",
               {{"count", integer(static_cast<std::int64_t>(list->devices.size()))}});
  state_->lists.push_back(std::move(list));
  return state_->lists.back().get();
}

std::size_t ScenarioRadio::deviceCount(WiFiDeviceListRef devices) {
  return devices->devices.size();
}

WiFiDeviceClientRef ScenarioRadio::deviceAt(WiFiDeviceListRef devices, std::size_t index) {
  return devices->devices.at(index);
}

int ScenarioRadio::getPower(WiFiManagerClientRef /*manager*/) {
  const std::lock_guard lock(mutex_);
  trace_.event("manager.getPower", {{"answer", integer(state_->power ? 1 : 0)}});
  return state_->power ? 1 : 0;
}

void ScenarioRadio::setPower(WiFiManagerClientRef /*manager*/, int power) {
  trace_.event("manager.setPower", {{"power", integer(power)}});
  {
    const std::lock_guard lock(mutex_);
    if (!state_->settings.powerOnSucceeds) return;
    state_->power = power != 0;
  }
  postNotification();
}

void ScenarioRadio::registerPowerCallback(WiFiDeviceClientRef device,
                                          WiFiDevicePowerCallback callback,
                                          std::weak_ptr<void> context) {
  trace_.event("device.registerPowerCallback", {});
  const std::lock_guard lock(mutex_);
  device->callback = callback;
  device->context = std::move(context);
}

void ScenarioRadio::retain(WiFiDeviceClientRef device) {
  trace_.event("device.retain", {});
  const std::lock_guard lock(mutex_);
  ++device->references;
}

void ScenarioRadio::release(WiFiManagerClientRef manager) {
  trace_.event("manager.release", {});
  const std::lock_guard lock(mutex_);
  drop(state_->clients, manager);
}

void ScenarioRadio::release(WiFiDeviceClientRef device) {
  trace_.event("device.release", {});
  const std::lock_guard lock(mutex_);
  dropReference(*device);
}

void ScenarioRadio::release(WiFiDeviceListRef devices) {
  trace_.event("devices.release", {});
  const std::lock_guard lock(mutex_);
  for (const WiFiDeviceClientRef device : devices->devices) dropReference(*device);
  drop(state_->lists, devices);
}

}  // namespace scenario
}  // namespace wifi_profile
