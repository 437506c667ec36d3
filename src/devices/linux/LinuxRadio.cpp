#include "devices/linux/LinuxRadio.h"

#include <chrono>
#include <poll.h>
#include <system_error>
#include <utility>

#include "devices/linux/bus/ConnectionManager.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::linux {
namespace {

constexpr std::chrono::seconds kSwitchLimit{5};
// The watching thread wakes at least this often, also without events.
constexpr std::chrono::hours kLongWait{1};

}  // namespace

LinuxRadio::LinuxRadio(std::string interface, std::shared_ptr<bus::Bus> systemBus, Rfkill rfkill)
    : devices::ManagedRadio(1),
      interface_(std::move(interface)),
      bus_(std::move(systemBus)),
      rfkill_(std::move(rfkill)) {
  const auto closed = rfkill_.open();
  if (closed && closed->reason == Reason::noHardware) {
    on_ = false;
  } else if (const auto bySwitches = rfkill_.poweredOn()) {
    on_ = *bySwitches;  // the current state, even if there will be no events
  } else {
    const auto byManager =
        bus::ConnectionManager(*bus_).isRadioOn(interface_, {Clock::now() + kSwitchLimit, ended_});
    on_ = !byManager || *byManager;
  }
}

LinuxRadio::~LinuxRadio() {
  ended_.cancel();
  if (watcher_.joinable()) watcher_.join();
}

void LinuxRadio::beginWatching() {
  if (rfkill_.descriptor() < 0) return;
  std::call_once(watching_, [this] {
    try {
      watcher_ = std::thread([this] { watch(); });
    } catch (const std::system_error& exhausted) {  // changes are not reported then
      DiagnosticLogHandleForCategory(0).error([&] {
        return std::string("Changes of Wi-Fi's power go unnoticed: ") + exhausted.what();
      });
    }
  });
}

void LinuxRadio::watch() {
  while (!ended_.isCancelled()) {
    const Waited waited = waitFor(rfkill_.descriptor(), POLLIN, {Clock::now() + kLongWait, ended_});
    if (waited != Waited::ready) continue;
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
      interface_, true, {Clock::now() + kSwitchLimit, ended_});
  Rfkill switches = rfkill_.another();
  auto why = switches.open();
  if (!byManager && !switches.isHardBlocked()) {
    if (rfkill_.descriptor() < 0) tellByItself();
    return;
  }
  if (!why || switches.isHardBlocked()) why = switches.switchOn();
  if (!why) return;
  const std::string reason = (byManager ? byManager->message + " " : "") + why->message;
  powerOnFailed(reason);
  DiagnosticLogHandleForCategory(0).error(
      [&] { return "Wi-Fi could not be switched on. " + reason; });
}

}  // namespace wifi_profile::linux
