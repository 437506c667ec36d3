#include "devices/linux/Rfkill.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <linux/rfkill.h>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace wifi_profile::linux {

namespace {

// The bytes that every kernel's events have. A read of this size takes one event and drops the rest
// of it.
constexpr std::size_t kEventBytes = RFKILL_EVENT_SIZE_V1;
// More than any machine has switches; further events are read the next time.
constexpr int kMostEvents = 256;

const Error kNoSwitch{Reason::notSupported,
                      "The Wi-Fi radio has no switch. Use the device's own, where it has one."};

// Returns the number in a name such as rfkill3.
std::optional<std::uint32_t> numberOf(std::string_view name) {
  constexpr std::string_view kFront = "rfkill";
  if (!name.starts_with(kFront)) return std::nullopt;
  name.remove_prefix(kFront.size());
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
  return number;
}

std::vector<std::uint32_t> switchesIn(const std::filesystem::path& folder, std::error_code& error) {
  std::vector<std::uint32_t> numbers;
  std::filesystem::directory_iterator entries(folder, error);
  while (!error && entries != std::filesystem::directory_iterator()) {
    if (const auto number = numberOf(entries->path().filename().string())) {
      numbers.push_back(*number);
    }
    entries.increment(error);
  }
  return numbers;
}

// Whether a flag in sysfs is set; empty if the file cannot be read.
std::optional<bool> isSet(const std::filesystem::path& file) {
  const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  char digit = 0;
  if (descriptor.number() < 0 || read(descriptor.number(), &digit, 1) != 1) return std::nullopt;
  return digit != '0';
}

}  // namespace

std::optional<RfkillEvent> parseRfkillEvent(ieee80211::Bytes bytes) {
  rfkill_event raw{};
  if (bytes.size() < kEventBytes) return std::nullopt;
  std::memcpy(&raw, bytes.data(), kEventBytes);
  RfkillEvent event;
  event.index = raw.idx;
  event.softBlocked = raw.soft != 0;
  event.hardBlocked = raw.hard != 0;
  switch (raw.op) {
    case RFKILL_OP_ADD:
      event.operation = RfkillEvent::Operation::added;
      break;
    case RFKILL_OP_DEL:
      event.operation = RfkillEvent::Operation::removed;
      break;
    case RFKILL_OP_CHANGE:
      event.operation = RfkillEvent::Operation::changed;
      break;
    default:
      return std::nullopt;
  }
  return event;
}

Rfkill::Rfkill(std::string interface, std::string device, std::string interfaces)
    : interface_(std::move(interface)),
      path_(std::move(device)),
      interfaces_(std::move(interfaces)) {}

Status Rfkill::open() {
  own_.clear();
  switches_.clear();
  device_ = Descriptor();
  const auto folder = std::filesystem::path(interfaces_) / interface_;
  std::error_code error;
  if (!std::filesystem::exists(folder, error)) {
    return Error{Reason::noHardware,
                 "The Wi-Fi interface is gone. Plug it in again, or use another one."};
  }
  own_ = switchesIn(folder / "phy80211", error);
  if (own_.empty()) return kNoSwitch;
  for (const std::uint32_t index : own_) {
    const auto one = folder / "phy80211" / ("rfkill" + std::to_string(index));
    const auto soft = isSet(one / "soft");
    const auto hard = isSet(one / "hard");
    if (soft && hard) switches_[index] = {*soft, *hard};
  }
  device_ = Descriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (device_.number() < 0) {
    const int number = errno;
    if (number == EACCES || number == EPERM) {
      return Error{Reason::notPermitted,
                   "cannot open " + path_ + ": Permission denied. Run as root, or log in locally."};
    }
    return Error{Reason::notSupported, "The kernel does not show the radio's switches (" + path_ +
                                           "): " + std::generic_category().message(number) +
                                           ". Load the module rfkill."};
  }
  readEvents();
  return {};
}

void Rfkill::readEvents() {
  std::array<std::uint8_t, kEventBytes> bytes{};
  for (int count = 0; count < kMostEvents; ++count) {
    const auto size = read(device_.number(), bytes.data(), bytes.size());
    if (size <= 0) return;
    const auto event = parseRfkillEvent({bytes.data(), static_cast<std::size_t>(size)});
    if (!event || std::ranges::find(own_, event->index) == own_.end()) continue;
    if (event->operation == RfkillEvent::Operation::removed) {
      switches_.erase(event->index);
      // The kernel may reuse the number for another device.
      std::erase(own_, event->index);
    } else {
      switches_[event->index] = {event->softBlocked, event->hardBlocked};
    }
  }
}

std::optional<bool> Rfkill::poweredOn() const {
  if (switches_.empty()) return std::nullopt;
  return std::ranges::none_of(
      switches_, [](const auto& one) { return one.second.softBlocked || one.second.hardBlocked; });
}

bool Rfkill::isHardBlocked() const {
  return std::ranges::any_of(switches_, [](const auto& one) { return one.second.hardBlocked; });
}

void Rfkill::handleEvents(const std::function<void(News)>& tell) {
  if (device_.number() < 0) return;
  const auto before = poweredOn();
  readEvents();
  const auto after = poweredOn();
  if (before == after) return;
  if (!after) {
    tell(News::removed);
  } else {
    tell(*after ? News::on : News::off);
  }
}

Status Rfkill::switchOn() {
  if (own_.empty()) return kNoSwitch;
  if (isHardBlocked()) {
    return Error{Reason::radioOff,
                 "Wi-Fi is switched off by a switch or a key on the device. Turn that on."};
  }
  const Descriptor device(::open(path_.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
  for (const std::uint32_t index : own_) {
    rfkill_event event{};
    event.idx = index;
    event.type = RFKILL_TYPE_WLAN;
    event.op = RFKILL_OP_CHANGE;
    if (device.number() >= 0 && write(device.number(), &event, kEventBytes) > 0) continue;
    const int number = errno;
    if (number == EACCES || number == EPERM) {
      return Error{Reason::notPermitted,
                   "This user may not switch Wi-Fi on. Run as root, or as a member of the group "
                   "netdev."};
    }
    return Error{Reason::failed,
                 "Wi-Fi cannot be switched on: " + std::generic_category().message(number) +
                     ". Use rfkill unblock wifi."};
  }
  return {};
}

}  // namespace wifi_profile::linux
