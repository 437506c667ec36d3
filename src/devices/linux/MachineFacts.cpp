#include "devices/linux/MachineFacts.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

#include "devices/linux/Coexistence.h"
#include "devices/linux/LinkWatch.h"
#include "devices/linux/ReachErrands.h"
#include "devices/linux/bus/Bluez.h"
#include "devices/linux/bus/ConnectionManager.h"
#include "devices/linux/bus/SessionProxies.h"
#include "devices/linux/bus/SystemNameServers.h"
#include "devices/linux/netlink/Addresses.h"
#include "devices/linux/netlink/Carrier.h"
#include "devices/linux/netlink/RadioEntries.h"

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::Known;
using std::chrono::milliseconds;

// Limit of the tasks that ask the kernel. The kernel answers much faster.
constexpr milliseconds kKernelLimit{3'000};
// Short, because the first survey delays the scan.
constexpr milliseconds kFirstSurveyLimit{1'000};
// Time between the two surveys of a run, so that there is a share of time to report.
constexpr milliseconds kBetweenSurveys{1'000};

template <class T>
Found put(Known<T> checks::Facts::*member, Known<T> fact) {
  return [member, fact = std::move(fact)](checks::Facts& facts) { facts.*member = fact; };
}

}  // namespace

MachineFacts::MachineFacts(std::shared_ptr<const Machine> machine, Targets targets)
    : machine_(std::move(machine)), targets_(std::move(targets)) {}

Known<checks::Link> MachineFacts::link(const Patience& patience) {
  return machine_->link(patience);
}

Known<checks::Scan> MachineFacts::scan(std::chrono::seconds oldest, const Patience& patience) {
  auto list = machine_->scan(oldest, patience);
  if (!list) return list.why();
  return std::move(list->scan);
}

std::vector<Errand> MachineFacts::errands(std::chrono::seconds oldestScan) {
  const auto watch = std::make_shared<LinkWatch>(linkSourceOf(machine_->interface()));
  std::vector<Errand> all;
  addKernelErrands(all, oldestScan, watch);
  addServiceErrands(all, watch);
  addReachErrands(all, machine_->interface().name, targets_);
  for (Errand& errand : all) {
    errand = boundToLink(std::move(errand),
                         [watch](const Patience& patience) { return watch->change(patience); });
  }
  return all;
}

void MachineFacts::addKernelErrands(std::vector<Errand>& all, std::chrono::seconds oldestScan,
                                    const std::shared_ptr<LinkWatch>& watch) {
  // The scan's task writes the first survey before the scan; the task of the surveys reads it
  // afterwards. A driver that blocks in the survey delays only the scan, not the link.
  const auto first = std::make_shared<FirstSurveys>();
  all.push_back({.name = "kernel's answer about the link",
                 .gives = {Fact::link, Fact::radio, Fact::regulatory},
                 .after = {},
                 .limit = kKernelLimit,
                 .run = [this, watch](const checks::Facts&, const Patience& patience) -> Found {
                   Nl80211 kernel;
                   watch->begin(patience);
                   auto link = kernel.link(machine_->interface(), patience);
                   if (link) watch->setLink(*link);
                   auto radio = kernel.radio(machine_->interface(), patience);
                   auto regulatory = kernel.regulatory(machine_->interface(), patience);
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
                 .run = [this, first, oldestScan](const checks::Facts&, const Patience& patience) {
                   surveyFirst(*first, patience.atMost(kFirstSurveyLimit));
                   return put(&checks::Facts::scan, scan(oldestScan, patience));
                 }});
  all.push_back({.name = "survey of the channels",
                 .gives = {Fact::surveys},
                 .after = {Fact::scan},  // a scan visits the channels
                 .limit = kKernelLimit,
                 .run = [this, first](const checks::Facts&, const Patience& patience) {
                   return put(&checks::Facts::surveys, surveysSince(*first, patience));
                 }});
  all.push_back({.name = "driver's answer about Bluetooth",
                 .gives = {Fact::coexistence},
                 .after = {},
                 .limit = kKernelLimit,
                 .run = [this](const checks::Facts&, const Patience&) {
                   return put(&checks::Facts::coexistence,
                              readCoexistence(machine_->interface().name));
                 }});
}

void MachineFacts::surveyFirst(FirstSurveys& first, const Patience& patience) const {
  auto surveys = Nl80211().surveys(machine_->interface(), patience);
  const std::lock_guard lock(first.mutex);
  first.time = Clock::now();
  first.surveys = std::move(surveys);
}

MachineFacts::FirstSurveys::Surveys MachineFacts::surveysSince(FirstSurveys& first,
                                                               const Patience& patience) const {
  const auto [time, before] = [&first] {
    const std::lock_guard lock(first.mutex);
    return std::pair(first.time, first.surveys);
  }();
  if (!before) return before;
  waitFor(-1, 0, {std::min(patience.deadline, time + kBetweenSurveys), patience.cancellation});
  auto after = Nl80211().surveys(machine_->interface(), patience);
  if (!after) return after;
  return surveysBetween(*before, std::move(*after));
}

void MachineFacts::addServiceErrands(std::vector<Errand>& all,
                                     const std::shared_ptr<LinkWatch>& watch) {
  all.push_back({.name = "answer of the connection manager",
                 .gives = {Fact::activeProfile, Fact::savedNetworks, Fact::addresses},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this, watch](const checks::Facts&, const Patience& patience) {
                   watch->begin(patience);
                   return findConnection(patience);
                 }});
  all.push_back({.name = "answer of BlueZ",
                 .gives = {Fact::bluetooth},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this](const checks::Facts&, const Patience& patience) {
                   return put(&checks::Facts::bluetooth,
                              readBluetooth(*machine_->systemBus(), patience));
                 }});
  all.push_back({.name = "answer of the desktop about proxies",
                 .gives = {Fact::sessionProxy},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this](const checks::Facts&, const Patience& patience) {
                   return put(&checks::Facts::sessionProxy,
                              readSessionProxy(environ, *machine_->sessionBus(), patience));
                 }});
}

// Reads the facts in order of importance: a manager that does not answer may use up the time for
// the later ones.
Found MachineFacts::findConnection(const Patience& patience) {
  const WifiInterface& wifi = machine_->interface();
  const auto read = readCarrier(wifi.index, patience);
  const Carrier carrier = read ? *read : Carrier{.index = wifi.index, .name = wifi.name};
  auto addresses = readAddressesOfLink(read, patience);
  ConnectionManager manager(*machine_->systemBus());
  const auto servers = manager.dnsServers(carrier.name, patience);
  if (addresses) {
    if (carrier.index != wifi.index) addresses->carrier = carrier.name;
    addresses->otherWayOut = otherWayOut(carrier.index, patience);
    if (servers) addresses->dnsServers = *servers;
    addresses->systemDnsServers =
        readSystemNameServers(*machine_->systemBus(), carrier.index, patience);
    if (addresses->systemDnsServers) {
      const auto towards = [&](const std::string& server) {
        return interfaceTowards(server, patience);
      };
      const auto isOfLink = [&](const std::string& server) {
        return server == addresses->ipv4Gateway || server == addresses->ipv6Gateway ||
               isInOwnSubnet(carrier.index, server, patience);
      };
      const auto ofLink =
          nameServersThrough(carrier.index, *addresses->systemDnsServers, isOfLink, towards);
      if (!servers) addresses->dnsServers = ofLink;
      if (!ofLink) {
        const auto leavesBy = towards(addresses->systemDnsServers->front());
        if (leavesBy) addresses->systemDnsThrough = readOtherInterface(*leavesBy, patience);
      }
    }
  }
  auto profile = manager.activeProfile(carrier.name, patience);
  auto saved = manager.savedNetworks(machine_->interface().name, patience);
  return [profile, saved, addresses](checks::Facts& facts) {
    facts.activeProfile = profile;
    facts.savedNetworks = saved;
    facts.addresses = addresses;
  };
}

}  // namespace wifi_profile::machine
