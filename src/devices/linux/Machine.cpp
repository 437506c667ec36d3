#include "devices/linux/Machine.h"

#include <algorithm>

#include "devices/linux/bus/ConnectionManager.h"

namespace wifi_profile::machine {
namespace {

using checks::Known;
using checks::Unknown;
using std::chrono::milliseconds;

// The kernel knows its interfaces at once.
constexpr milliseconds kKernelLimit{3'000};
// Of a manager that does not say when it scanned last, so that the scan has most of the time.
constexpr milliseconds kManagerLimit{2'000};
// How long to wait before a manager is asked again for a scan that it found too soon.
constexpr milliseconds kBeforeAskingAgain{1'000};

Unknown noInterface(const std::string& name) {
  return {checks::Reason::noHardware, "There is no Wi-Fi interface \"" + name +
                                          "\" on this machine: leave the name out, or use one that "
                                          "\"iw dev\" or \"nmcli device\" lists."};
}

}  // namespace

std::variant<std::shared_ptr<Machine>, Unknown> Machine::open(const std::string& interface) {
  const Cancellation nobody;
  Nl80211 kernel;
  const auto all = kernel.interfaces({Clock::now() + kKernelLimit, nobody});
  if (!all) return all.why();
  const auto found = std::find_if(all->begin(), all->end(), [&](const WifiInterface& one) {
    return interface.empty() ? !one.name.empty() : one.name == interface;
  });
  if (found == all->end()) return interface.empty() ? noWifiDevice() : noInterface(interface);
  return std::shared_ptr<Machine>(new Machine(*found));
}

Known<checks::Link> Machine::link(const Patience& patience) const {
  return Nl80211().link(interface_, patience);
}

Known<checks::Radio> Machine::abilities(const Patience& patience) const {
  return Nl80211().abilities(interface_, patience);
}

Known<ScanList> Machine::scan(std::chrono::seconds oldest, const Patience& patience) const {
  Nl80211 kernel;
  if (oldest.count() > 0) {
    auto list = kernel.scan(interface_, patience);
    if (list && isYoung(*list, oldest, patience)) return list;
  }
  if (const NotDone why = makeScan(kernel, patience)) return *why;
  return kernel.scan(interface_, patience);
}

// Where only the joined access point is in range the list does not tell, and the manager may know.
bool Machine::isYoung(const ScanList& list, std::chrono::seconds oldest,
                      const Patience& patience) const {
  if (list.age) return *list.age <= oldest;
  const auto last =
      ConnectionManager(*systemBus_).lastScan(interface_.name, patience.atMost(kManagerLimit));
  return last && *last && sinceBoot() - **last <= oldest;
}

// The kernel lets only some users scan; the connection manager lets all who sit at the machine.
NotDone Machine::makeScan(Nl80211& kernel, const Patience& patience) const {
  NotDone byKernel = kernel.triggerScan(interface_, patience);
  if (!byKernel || byKernel->reason != checks::Reason::notPermitted) return byKernel;
  if (NotDone why = kernel.watchScans(patience)) return why;
  ConnectionManager manager(*systemBus_);
  while (true) {
    const auto started = manager.requestScan(interface_.name, patience);
    if (!started) return started.why();
    if (*started == ScanStart::started) return kernel.awaitScanResults(interface_, patience);
    // Too soon: one is under way, or the last one was just now.
    const Patience little = patience.atMost(kBeforeAskingAgain);
    NotDone none = kernel.awaitScanResults(interface_, little);
    if (!none || patience.isOver()) return none;
    const bool mayPass = none->reason == checks::Reason::tookTooLong ||
                         none->reason == checks::Reason::failed;  // such as a scan given up
    if (!mayPass) return none;
    waitFor(-1, 0, little);  // what failed, failed at once
  }
}

}  // namespace wifi_profile::machine
