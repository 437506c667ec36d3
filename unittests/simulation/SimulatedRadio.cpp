#include "simulation/SimulatedRadio.h"

#include <algorithm>

namespace wifi_profile {

// The handles' far ends.
struct WiFiManagerClient {
  int references = 1;
  bool scheduled = false;
};
struct WiFiDeviceClient {
  int retains = 0;  // by clients
  int lists = 0;    // that hold it and are not released
  WiFiDevicePowerCallback callback = nullptr;
  std::weak_ptr<void> context;
};
struct WiFiDeviceList {
  int references = 1;
};

namespace simulation {
namespace {

template <class Handle>
bool isOneOf(const std::vector<std::unique_ptr<Handle>>& owned, const Handle* handle) {
  return std::any_of(owned.begin(), owned.end(),
                     [handle](const auto& one) { return one.get() == handle; });
}

// A device that nobody refers to any more tells nobody of its power.
void forgetListener(WiFiDeviceClient& device) {
  if (device.retains <= 0 && device.lists <= 0) device.callback = nullptr;
}

}  // namespace

SimulatedRadio::SimulatedRadio(World& world, WorkQueues& queues, History& history)
    : world_(world), queues_(queues), history_(history), power_(world.powerAtStart) {
  for (std::size_t i = 0; i < world.devices; ++i) {
    devices_.push_back(std::make_unique<WiFiDeviceClient>());
  }
}

SimulatedRadio::~SimulatedRadio() = default;

// --- The rules of handles; the mutex is held

void SimulatedRadio::checkManager(WiFiManagerClientRef manager, const char* operation) {
  history_.require(isOneOf(managers_, manager) && manager->references > 0, [&] {
    return std::string(operation) + " was passed a manager that its caller does not own";
  });
}

void SimulatedRadio::checkDevice(WiFiDeviceClientRef device, const char* operation) {
  history_.require(isOneOf(devices_, device) && device->retains + device->lists > 0, [&] {
    return std::string(operation) + " was passed a device that its caller does not own";
  });
}

void SimulatedRadio::checkList(WiFiDeviceListRef devices, const char* operation) {
  history_.require(isOneOf(lists_, devices) && devices->references > 0, [&] {
    return std::string(operation) + " was passed a list that its caller does not own";
  });
}

bool SimulatedRadio::ownsClients() const {
  const std::lock_guard lock(mutex_);
  return std::any_of(managers_.begin(), managers_.end(),
                     [](const auto& one) { return one->references != 0; }) ||
         std::any_of(devices_.begin(), devices_.end(),
                     [](const auto& one) { return one->retains != 0; });
}

bool SimulatedRadio::ownsAnything() const {
  if (ownsClients()) return true;
  const std::lock_guard lock(mutex_);
  return std::any_of(lists_.begin(), lists_.end(),
                     [](const auto& one) { return one->references != 0; });
}

// --- Power

void SimulatedRadio::switchFromOutside(bool on) {
  {
    const std::lock_guard lock(mutex_);
    power_ = on;
  }
  notifySoon({});
}

void SimulatedRadio::notifySoon(std::chrono::nanoseconds delay) {
  if (delay.count() == 0) {
    queues_.postToMain([self = shared_from_this()] { self->notify(); });
    return;
  }
  queues_.postToGlobalAfter(
      delay, [self = shared_from_this()] { self->queues_.postToMain([self] { self->notify(); }); });
}

void SimulatedRadio::notify() {
  WiFiDeviceClientRef device = nullptr;
  WiFiDevicePowerCallback callback = nullptr;
  std::shared_ptr<void> context;
  bool on = false;
  {
    const std::lock_guard lock(mutex_);
    const bool delivers = std::any_of(managers_.begin(), managers_.end(), [](const auto& one) {
      return one->references > 0 && one->scheduled;
    });
    if (!delivers || devices_.empty()) return;
    device = devices_.front().get();
    callback = device->callback;
    context = device->context.lock();
    on = power_;
    if (!callback || !context) return;
    history_.require(device->retains > 0, [] { return "a device tells of power, unretained"; });
  }
  history_.note([on] { return std::string("radio: tells of power ") + (on ? "on" : "off"); });
  if (context != listener_.lock()) {
    history_.violated("a power change was to be told to a stranger");
    return;
  }
  whenToBeNotified(on);
  callback(device, context);
  whenNotified(on);
}

int SimulatedRadio::getPower(WiFiManagerClientRef manager) {
  const std::lock_guard lock(mutex_);
  checkManager(manager, "getPower");
  return power_ ? 1 : 0;
}

void SimulatedRadio::setPower(WiFiManagerClientRef manager, int power) {
  history_.note([power] { return "radio: is asked for power " + std::to_string(power); });
  {
    const std::lock_guard lock(mutex_);
    checkManager(manager, "setPower");
    if (world_.powerOn == PowerOn::staysOffSilently) return;
    if (world_.powerOn != PowerOn::saysItStaysOff) power_ = power != 0;
  }
  notifySoon(world_.powerOn == PowerOn::comesOnLate ? world_.someTime(4000)
                                                    : std::chrono::nanoseconds(0));
}

void SimulatedRadio::registerPowerCallback(WiFiDeviceClientRef device,
                                           WiFiDevicePowerCallback callback,
                                           std::weak_ptr<void> context) {
  const std::lock_guard lock(mutex_);
  checkDevice(device, "registerPowerCallback");
  history_.require(context.lock() == listener_.lock(),
                   [] { return "a stranger was registered for power changes"; });
  device->callback = callback;
  device->context = std::move(context);
}

// --- Handles

int SimulatedRadio::containsRadio() { return world_.hasRadio ? 1 : 0; }

WiFiManagerClientRef SimulatedRadio::createClient(std::int32_t type) {
  history_.require(type == 0, [] { return "a manager of another type was asked for"; });
  if (!world_.makesManager) return nullptr;
  const std::lock_guard lock(mutex_);
  managers_.push_back(std::make_unique<WiFiManagerClient>());
  return managers_.back().get();
}

void SimulatedRadio::setType(WiFiManagerClientRef manager, std::int32_t type) {
  history_.require(type == 0, [] { return "a manager was given another type"; });
  const std::lock_guard lock(mutex_);
  checkManager(manager, "setType");
}

void SimulatedRadio::scheduleWithRunLoop(WiFiManagerClientRef manager) {
  history_.require(queues_.onMainThread(), [] { return "a manager was scheduled elsewhere"; });
  const std::lock_guard lock(mutex_);
  checkManager(manager, "scheduleWithRunLoop");
  manager->scheduled = true;
}

WiFiDeviceListRef SimulatedRadio::copyDevices(WiFiManagerClientRef manager) {
  const std::lock_guard lock(mutex_);
  checkManager(manager, "copyDevices");
  if (!world_.makesDeviceList) return nullptr;
  for (const auto& device : devices_) ++device->lists;
  lists_.push_back(std::make_unique<WiFiDeviceList>());
  return lists_.back().get();
}

std::size_t SimulatedRadio::deviceCount(WiFiDeviceListRef devices) {
  const std::lock_guard lock(mutex_);
  checkList(devices, "deviceCount");
  return devices_.size();
}

WiFiDeviceClientRef SimulatedRadio::deviceAt(WiFiDeviceListRef devices, std::size_t index) {
  const std::lock_guard lock(mutex_);
  checkList(devices, "deviceAt");
  return devices_.at(index).get();
}

void SimulatedRadio::retain(WiFiDeviceClientRef device) {
  const std::lock_guard lock(mutex_);
  checkDevice(device, "retain");
  ++device->retains;
}

void SimulatedRadio::release(WiFiManagerClientRef manager) {
  history_.note([] { return "radio: the manager is released"; });
  const std::lock_guard lock(mutex_);
  checkManager(manager, "release");
  --manager->references;
}

void SimulatedRadio::release(WiFiDeviceClientRef device) {
  history_.note([] { return "radio: the device is released"; });
  const std::lock_guard lock(mutex_);
  checkDevice(device, "release");
  history_.require(device->retains > 0, [] { return "a device was released too often"; });
  history_.require(std::all_of(managers_.begin(), managers_.end(),
                               [](const auto& one) { return one->references == 0; }),
                   [] { return "the device was released before the manager"; });
  --device->retains;
  forgetListener(*device);
}

void SimulatedRadio::release(WiFiDeviceListRef devices) {
  const std::lock_guard lock(mutex_);
  checkList(devices, "release");
  --devices->references;
  for (const auto& device : devices_) {
    --device->lists;
    forgetListener(*device);
  }
}

}  // namespace simulation
}  // namespace wifi_profile
