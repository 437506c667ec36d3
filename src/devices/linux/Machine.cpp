#include "devices/linux/Machine.h"

#include <algorithm>
#include <ctime>
#include <unistd.h>

#include "devices/linux/Coexistence.h"
#include "devices/linux/ReachErrands.h"
#include "devices/linux/bus/Bluez.h"
#include "devices/linux/bus/ConnectionManager.h"
#include "devices/linux/bus/SessionProxies.h"
#include "devices/linux/netlink/Addresses.h"

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::Known;
using checks::Unknown;
using std::chrono::milliseconds;

// Longest times, from the beginning of each errand. What answers at all answers in much less.
constexpr milliseconds kKernelLimit{3'000};
constexpr milliseconds kServicesLimit{5'000};
// A joined radio goes back to its channel between others, so a scan of all of them takes seconds.
constexpr milliseconds kScanLimit{20'000};
// How long to wait before a manager is asked again for a scan that it found too soon.
constexpr milliseconds kBeforeAskingAgain{1'000};

std::chrono::nanoseconds sinceBoot() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

template <class T>
Found put(Known<T> checks::Facts::*member, Known<T> fact) {
  return [member, fact = std::move(fact)](checks::Facts& facts) { facts.*member = fact; };
}

Unknown noInterface(const std::string& name) {
  return {checks::Reason::noHardware, "There is no Wi-Fi interface \"" + name +
                                          "\" on this machine: leave the name out, or use one that "
                                          "\"iw dev\" or \"nmcli device\" lists."};
}

}  // namespace

std::variant<std::shared_ptr<Machine>, Unknown> Machine::open(const std::string& interface,
                                                              Targets targets) {
  const Cancellation nobody;
  Nl80211 kernel;
  const auto all = kernel.interfaces({Clock::now() + kKernelLimit, nobody});
  if (!all) return all.why();
  const auto found = std::find_if(all->begin(), all->end(), [&](const WifiInterface& one) {
    return interface.empty() ? !one.name.empty() : one.name == interface;
  });
  if (found == all->end()) return noInterface(interface);
  return std::shared_ptr<Machine>(new Machine(*found, std::move(targets)));
}

Machine::Machine(WifiInterface interface, Targets targets)
    : interface_(std::move(interface)), targets_(std::move(targets)) {}

Known<checks::Link> Machine::link(const Patience& patience) {
  return Nl80211().link(interface_, patience);
}

Known<checks::Radio> Machine::radio(const Patience& patience) {
  return Nl80211().radio(interface_, patience);
}

Known<checks::Scan> Machine::scan(std::chrono::seconds oldest, const Patience& patience) {
  Nl80211 kernel;
  if (oldest.count() > 0) {
    const auto list = kernel.scan(interface_, patience);
    if (list && isYoung(*list, oldest, patience)) return list->scan;
  }
  if (const NotDone why = makeScan(kernel, patience)) return *why;
  const auto list = kernel.scan(interface_, patience);
  if (!list) return list.why();
  return list->scan;
}

// Where only the joined access point is in range the list does not tell, and the manager may know.
bool Machine::isYoung(const ScanList& list, std::chrono::seconds oldest, const Patience& patience) {
  if (list.age) return *list.age <= oldest;
  const auto last = ConnectionManager(*systemBus_).lastScan(interface_.name, patience);
  return last && *last && sinceBoot() - **last <= oldest;
}

// The kernel lets only some users scan; the connection manager lets all who sit at the machine.
NotDone Machine::makeScan(Nl80211& kernel, const Patience& patience) {
  NotDone byKernel = kernel.triggerScan(interface_, patience);
  if (!byKernel || byKernel->reason != checks::Reason::notPermitted) return byKernel;
  if (NotDone why = kernel.watchScans(patience)) return why;
  ConnectionManager manager(*systemBus_);
  while (true) {
    const auto started = manager.requestScan(interface_.name, patience);
    if (!started) return started.why();
    if (*started == ScanStart::started) return kernel.awaitScanResults(interface_, patience);
    // Too soon: one is under way, or the last one was just now.
    NotDone none = kernel.awaitScanResults(interface_, patience.atMost(kBeforeAskingAgain));
    if (!none || patience.isOver()) return none;
  }
}

std::vector<Errand> Machine::errands(std::chrono::seconds oldestScan) {
  std::vector<Errand> all;
  addKernelErrands(all, oldestScan);
  addServiceErrands(all);
  addReachErrands(all, interface_.name, targets_);
  return all;
}

void Machine::addKernelErrands(std::vector<Errand>& all, std::chrono::seconds oldestScan) {
  all.push_back({.name = "kernel's answer about the link",
                 .gives = {Fact::link, Fact::radio, Fact::regulatory},
                 .after = {},
                 .limit = kKernelLimit,
                 .run = [this](const checks::Facts&, const Patience& patience) -> Found {
                   Nl80211 kernel;
                   auto link = kernel.link(interface_, patience);
                   auto radio = kernel.radio(interface_, patience);
                   auto regulatory = kernel.regulatory(interface_, patience);
                   return [link, radio, regulatory](checks::Facts& facts) {
                     facts.link = link;
                     facts.radio = radio;
                     facts.regulatory = regulatory;
                   };
                 }});
  all.push_back({.name = "scan",
                 .gives = {Fact::scan},
                 .after = {Fact::link},
                 .limit = kScanLimit,
                 .run = [this, oldestScan](const checks::Facts&, const Patience& patience) {
                   return put(&checks::Facts::scan, scan(oldestScan, patience));
                 }});
  all.push_back({.name = "survey of the channels",
                 .gives = {Fact::surveys},
                 .after = {Fact::scan},  // which visits the channels
                 .limit = kKernelLimit,
                 .run = [this](const checks::Facts&, const Patience& patience) {
                   return put(&checks::Facts::surveys, Nl80211().surveys(interface_, patience));
                 }});
  all.push_back({.name = "driver's answer about Bluetooth",
                 .gives = {Fact::coexistence},
                 .after = {},
                 .limit = kKernelLimit,
                 .run = [this](const checks::Facts&, const Patience&) {
                   return put(&checks::Facts::coexistence, readCoexistence(interface_.name));
                 }});
}

void Machine::addServiceErrands(std::vector<Errand>& all) {
  all.push_back({.name = "answer of the connection manager",
                 .gives = {Fact::activeProfile, Fact::savedNetworks, Fact::addresses},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this](const checks::Facts&, const Patience& patience) {
                   return findConnection(patience);
                 }});
  all.push_back({.name = "answer of BlueZ",
                 .gives = {Fact::bluetooth},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this](const checks::Facts&, const Patience& patience) {
                   return put(&checks::Facts::bluetooth, readBluetooth(*systemBus_, patience));
                 }});
  all.push_back({.name = "answer of the desktop about proxies",
                 .gives = {Fact::sessionProxy},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [](const checks::Facts&, const Patience& patience) {
                   const auto session = Bus::session();
                   return put(&checks::Facts::sessionProxy,
                              readSessionProxy(environ, session.get(), patience));
                 }});
}

// In the order of how much depends on it: a manager that does not answer holds nothing else up.
Found Machine::findConnection(const Patience& patience) {
  auto addresses = readAddresses(interface_.index, patience);
  ConnectionManager manager(*systemBus_);
  const auto servers = manager.dnsServers(interface_.name, patience);
  if (addresses && servers) addresses->dnsServers = *servers;
  auto profile = manager.activeProfile(interface_.name, patience);
  auto saved = manager.savedNetworks(interface_.name, patience);
  return [profile, saved, addresses](checks::Facts& facts) {
    facts.activeProfile = profile;
    facts.savedNetworks = saved;
    facts.addresses = addresses;
  };
}

}  // namespace wifi_profile::machine
