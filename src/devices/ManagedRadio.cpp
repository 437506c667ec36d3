#include "devices/ManagedRadio.h"

#include <algorithm>
#include <vector>

#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "diagnostic/platform/Trace.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile {

// The objects behind the handles.
struct WiFiManagerClient {};
struct WiFiDeviceClient {
  int references = 0;  // of lists and of clients
  WiFiDevicePowerCallback callback = nullptr;
  std::weak_ptr<void> context;
};
struct WiFiDeviceList {
  std::vector<WiFiDeviceClientRef> devices;
};

}  // namespace wifi_profile

namespace wifi_profile::devices {

struct ManagedRadio::State {
  std::vector<std::unique_ptr<WiFiDeviceClient>> devices;
  std::vector<std::unique_ptr<WiFiManagerClient>> clients;
  std::vector<std::unique_ptr<WiFiDeviceList>> lists;
  std::string powerOnFailure;
};

namespace {

template <class T>
bool owns(const std::vector<std::unique_ptr<T>>& owned, const T* handle) {
  return std::any_of(owned.begin(), owned.end(),
                     [handle](const auto& one) { return one.get() == handle; });
}

template <class T>
void drop(std::vector<std::unique_ptr<T>>& owned, const T* handle) {
  std::erase_if(owned, [handle](const auto& one) { return one.get() == handle; });
}

// A device without references has no callback.
void dropReference(WiFiDeviceClient& device) {
  if (device.references > 0 && --device.references == 0) device.callback = nullptr;
}

NumberRef integer(std::int64_t value) { return Number::withInteger(value); }

}  // namespace

ManagedRadio::ManagedRadio(std::size_t deviceCount) : state_(std::make_unique<State>()) {
  for (std::size_t i = 0; i < deviceCount; ++i) {
    state_->devices.push_back(std::make_unique<WiFiDeviceClient>());
  }
}

ManagedRadio::~ManagedRadio() = default;

// Hold the mutex: after the last release() has returned, no notification may be posted, because the
// queues may no longer exist. The posted work holds a weak reference, because none of the radio's
// own threads may own the last strong one.
void ManagedRadio::postNotification() {
  const MutexLock lock(mutex_);
  const auto& devices = state_->devices;
  const auto listens = [](const auto& device) { return device->callback != nullptr; };
  if (state_->clients.empty() || std::none_of(devices.begin(), devices.end(), listens)) return;
  WorkQueues::shared()->postToMain([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->notify();
  });
}

void ManagedRadio::notify() {
  struct Listener {
    WiFiDeviceClientRef device;
    WiFiDevicePowerCallback callback;
    std::shared_ptr<void> context;
  };
  std::vector<Listener> listeners;
  {
    const MutexLock lock(mutex_);
    if (state_->clients.empty()) return;
    for (const auto& device : state_->devices) {
      auto context = device->context.lock();
      if (!device->callback || !context) continue;
      listeners.push_back({device.get(), device->callback, std::move(context)});
    }
  }
  for (const Listener& listener : listeners) {
    traceEvent("device.power");
    listener.callback(listener.device, listener.context);
  }
}

int ManagedRadio::containsRadio() {
  const int answer = hasRadio() ? 1 : 0;
  traceEvent("manager.containsRadio", [&] { return Trace::Fields{{"answer", integer(answer)}}; });
  return answer;
}

WiFiManagerClientRef ManagedRadio::createClient(std::int32_t type) {
  const bool made = givesClients();
  traceEvent("manager.create", [&] {
    return Trace::Fields{{"type", integer(type)}, {"made", Number::withBool(made)}};
  });
  if (!made) return nullptr;
  const MutexLock lock(mutex_);
  state_->clients.push_back(std::make_unique<WiFiManagerClient>());
  return state_->clients.back().get();
}

void ManagedRadio::setType(WiFiManagerClientRef /*manager*/, std::int32_t type) {
  traceEvent("manager.setType", [&] { return Trace::Fields{{"type", integer(type)}}; });
}

void ManagedRadio::scheduleWithRunLoop(WiFiManagerClientRef /*manager*/) {
  traceEvent("manager.schedule", [&] { return Trace::Fields{{"mode", makeText("default")}}; });
}

WiFiDeviceListRef ManagedRadio::copyDevices(WiFiManagerClientRef /*manager*/) {
  const MutexLock lock(mutex_);
  auto list = std::make_unique<WiFiDeviceList>();
  for (const auto& device : state_->devices) {
    ++device->references;
    list->devices.push_back(device.get());
  }
  traceEvent("manager.copyDevices", [&] {
    return Trace::Fields{{"count", integer(static_cast<std::int64_t>(list->devices.size()))}};
  });
  state_->lists.push_back(std::move(list));
  return state_->lists.back().get();
}

std::size_t ManagedRadio::deviceCount(WiFiDeviceListRef devices) {
  const MutexLock lock(mutex_);
  return owns(state_->lists, devices) ? devices->devices.size() : 0;
}

WiFiDeviceClientRef ManagedRadio::deviceAt(WiFiDeviceListRef devices, std::size_t index) {
  const MutexLock lock(mutex_);
  if (!owns(state_->lists, devices) || index >= devices->devices.size()) return nullptr;
  return devices->devices[index];
}

bool ManagedRadio::isClient(WiFiManagerClientRef manager) {
  const MutexLock lock(mutex_);
  return owns(state_->clients, manager);
}

int ManagedRadio::getPower(WiFiManagerClientRef manager) {
  const int answer = isClient(manager) && isPoweredOn() ? 1 : 0;
  traceEvent("manager.getPower", [&] { return Trace::Fields{{"answer", integer(answer)}}; });
  return answer;
}

void ManagedRadio::setPower(WiFiManagerClientRef manager, int power) {
  traceEvent("manager.setPower", [&] { return Trace::Fields{{"power", integer(power)}}; });
  if (!isClient(manager)) return;
  powerOnFailed({});
  switchPower(power != 0);
}

std::string ManagedRadio::powerOnFailure() const {
  const MutexLock lock(mutex_);
  return state_->powerOnFailure;
}

void ManagedRadio::powerOnFailed(std::string reason) {
  const MutexLock lock(mutex_);
  state_->powerOnFailure = std::move(reason);
}

void ManagedRadio::registerPowerCallback(WiFiDeviceClientRef device,
                                         WiFiDevicePowerCallback callback,
                                         std::weak_ptr<void> context) {
  traceEvent("device.registerPowerCallback");
  {
    const MutexLock lock(mutex_);
    if (!owns(state_->devices, device)) return;
    device->callback = callback;
    device->context = std::move(context);
  }
  beginWatching();
}

void ManagedRadio::retain(WiFiDeviceClientRef device) {
  traceEvent("device.retain");
  const MutexLock lock(mutex_);
  if (owns(state_->devices, device)) ++device->references;
}

void ManagedRadio::release(WiFiManagerClientRef manager) {
  traceEvent("manager.release");
  const MutexLock lock(mutex_);
  drop(state_->clients, manager);
}

void ManagedRadio::release(WiFiDeviceClientRef device) {
  traceEvent("device.release");
  const MutexLock lock(mutex_);
  if (owns(state_->devices, device)) dropReference(*device);
}

void ManagedRadio::release(WiFiDeviceListRef devices) {
  traceEvent("devices.release");
  const MutexLock lock(mutex_);
  if (!owns(state_->lists, devices)) return;
  for (const WiFiDeviceClientRef device : devices->devices) dropReference(*device);
  drop(state_->lists, devices);
}

}  // namespace wifi_profile::devices
