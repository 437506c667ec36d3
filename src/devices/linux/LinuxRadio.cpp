#include "devices/linux/LinuxRadio.h"

#include <array>
#include <chrono>
#include <sys/eventfd.h>
#include <system_error>
#include <utility>

#include "devices/linux/bus/ConnectionManager.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::linux {
namespace {

constexpr std::chrono::seconds kSwitchLimit{5};

}  // namespace

LinuxRadio::LinuxRadio(std::string interface, std::shared_ptr<bus::Bus> systemBus, Rfkill rfkill)
    : devices::ManagedRadio(1),
      interface_(std::move(interface)),
      bus_(std::move(systemBus)),
      rfkill_(std::move(rfkill)) {
  const Status opened = rfkill_.open();
  if (!opened && opened.error().reason == Reason::noHardware) {
    on_ = false;
  } else if (const auto bySwitches = rfkill_.poweredOn()) {
    on_ = *bySwitches;  // the current state, even if there will be no events
  } else {
    const auto byManager = bus::ConnectionManager(*bus_).isRadioOn(
        interface_, Deadline::in(kSwitchLimit, ended_.get_token()));
    on_ = !byManager || *byManager;
  }
}

LinuxRadio::~LinuxRadio() { ended_.request_stop(); }

void LinuxRadio::beginWatching() {
  if (rfkill_.descriptor() < 0) return;
  std::call_once(watching_, [this] {
    try {
      watcher_ = std::jthread([this](const std::stop_token& ended) { watch(ended); });
    } catch (const std::system_error& exhausted) {  // changes are not reported then
      DiagnosticLogHandleForCategory(0).error(
          [&] { return std::string("cannot watch the radio's power: ") + exhausted.what(); });
    }
  });
}

// Waits for hours, so it is woken instead of waiting in slices.
void LinuxRadio::watch(const std::stop_token& ended) {
  const Descriptor wake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
  const std::stop_callback atEnd(ended, [&wake] { eventfd_write(wake.number(), 1); });
  const Deadline never{Clock::time_point::max()};
  while (!ended.stop_requested()) {
    std::array<pollfd, 2> watched{{{wake.number(), POLLIN, 0}, {rfkill_.descriptor(), POLLIN, 0}}};
    const auto limit = wake ? never : Deadline::in(std::chrono::seconds(1));
    if (waitFor(watched, limit) != Waited::ready) continue;
    rfkill_.handleEvents([this](Rfkill::News news) {
      on_ = news == Rfkill::News::on;
      postNotification();
    });
  }
}

// Reports the power itself, because the switches send no events.
void LinuxRadio::tellByItself() {
  if (rfkill_.isHardBlocked()) return;  // no manager can change that
  on_ = true;
  postNotification();
}

void LinuxRadio::switchPower(bool on) {
  if (!on) return;  // the diagnostic never switches a radio off
  WorkQueues::shared()->postToGlobal([kept = shared_from_this(), this] { switchOn(); });
}

// Asks the connection manager first, because it stores the setting; the switches work without a
// manager. A manager agrees even if only a hardware switch can turn the radio on: the reason then
// comes from the switches.
void LinuxRadio::switchOn() {
  const auto byManager = bus::ConnectionManager(*bus_).setRadioOn(
      interface_, true, Deadline::in(kSwitchLimit, ended_.get_token()));
  Rfkill switches = rfkill_.another();
  Status done = switches.open();
  if (byManager && !switches.isHardBlocked()) {
    if (rfkill_.descriptor() < 0) tellByItself();
    return;
  }
  if (done || switches.isHardBlocked()) done = switches.switchOn();
  if (done) return;
  const std::string reason =
      (byManager ? "" : byManager.error().message + " ") + done.error().message;
  powerOnFailed(reason);
  DiagnosticLogHandleForCategory(0).error(
      [&] { return "Wi-Fi could not be switched on. " + reason; });
}

}  // namespace wifi_profile::linux
