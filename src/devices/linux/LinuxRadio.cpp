#include "devices/linux/LinuxRadio.h"

#include <chrono>
#include <poll.h>
#include <system_error>
#include <utility>

#include "devices/linux/bus/ConnectionManager.h"
#include "platform/DiagnosticLog.h"
#include "platform/WorkQueues.h"

namespace wifi_profile::machine {
namespace {

constexpr std::chrono::seconds kSwitchLimit{5};
// The watching thread looks up this often even without news.
constexpr std::chrono::hours kLongWait{1};

}  // namespace

LinuxRadio::LinuxRadio(std::string interface, std::shared_ptr<Bus> systemBus, Trace& trace,
                       Rfkill rfkill)
    : ManagedRadio(1, trace),
      interface_(std::move(interface)),
      bus_(std::move(systemBus)),
      rfkill_(std::move(rfkill)) {
  const auto closed = rfkill_.open();
  if (closed && closed->reason == checks::Reason::noHardware) {
    on_ = false;
  } else if (const auto bySwitches = rfkill_.poweredOn()) {
    on_ = *bySwitches;  // as they are now, even if there will be no news of them
  } else {
    const auto byManager =
        ConnectionManager(*bus_).isRadioOn(interface_, {Clock::now() + kSwitchLimit, ended_});
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
    } catch (const std::system_error& exhausted) {  // there is no news then
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

// For want of news from the switches.
void LinuxRadio::tellByItself() {
  if (rfkill_.isHardBlocked()) return;  // which no manager can change
  on_ = true;
  postNotification();
}

void LinuxRadio::switchPower(bool on) {
  if (!on) return;  // nothing of the diagnostic switches a radio off
  WorkQueues::shared()->postToGlobal([kept = shared_from_this(), this] { switchOn(); });
}

// The connection manager remembers that it was switched on; the switches work without one. A
// manager agrees also where only hands can: then the switches have the reason.
void LinuxRadio::switchOn() {
  const auto byManager =
      ConnectionManager(*bus_).setRadioOn(interface_, true, {Clock::now() + kSwitchLimit, ended_});
  Rfkill switches = rfkill_.another();
  auto why = switches.open();
  if (!byManager && !switches.isHardBlocked()) {
    if (rfkill_.descriptor() < 0) tellByItself();
    return;
  }
  if (!why || switches.isHardBlocked()) why = switches.switchOn();
  if (!why) return;
  const std::string reason = (byManager ? byManager->sentence + " " : "") + why->sentence;
  powerOnFailed(reason);
  DiagnosticLogHandleForCategory(0).error(
      [&] { return "Wi-Fi could not be switched on. " + reason; });
}

}  // namespace wifi_profile::machine
