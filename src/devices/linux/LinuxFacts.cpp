#include "devices/linux/LinuxFacts.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

#include "devices/linux/Coexistence.h"
#include "devices/linux/LinkWatch.h"
#include "devices/linux/ProbeTasks.h"
#include "devices/linux/bus/Bluez.h"
#include "devices/linux/bus/ConnectionManager.h"
#include "devices/linux/bus/SessionProxies.h"
#include "devices/linux/bus/SystemNameServers.h"
#include "devices/linux/netlink/Addresses.h"
#include "devices/linux/netlink/Carrier.h"
#include "devices/linux/netlink/RadioEntries.h"

namespace wifi_profile::linux {
namespace {

using facts::Fact;
using std::chrono::milliseconds;

// Limit of the tasks that ask the kernel. The kernel answers much faster.
constexpr milliseconds kKernelLimit{3'000};
// Short, because the first survey delays the scan.
constexpr milliseconds kFirstSurveyLimit{1'000};
// Time between the two surveys of a run, so that there is a share of time to report.
constexpr milliseconds kBetweenSurveys{1'000};

template <class T>
Found put(Result<T> facts::Facts::*member, Result<T> fact) {
  return [member, fact = std::move(fact)](facts::Facts& facts) { facts.*member = fact; };
}

}  // namespace

LinuxFacts::LinuxFacts(std::shared_ptr<const WifiDevice> machine, devices::Targets targets)
    : device_(std::move(machine)), targets_(std::move(targets)) {}

Result<facts::Link> LinuxFacts::link(const Deadline& deadline) { return device_->link(deadline); }

Result<facts::Scan> LinuxFacts::scan(std::chrono::seconds oldest, const Deadline& deadline) {
  auto list = device_->scan(oldest, deadline);
  if (!list) return list.error();
  return std::move(list->scan);
}

std::vector<FactTask> LinuxFacts::tasks(std::chrono::seconds oldestScan) {
  const auto watch = std::make_shared<LinkWatch>(linkSourceOf(device_->interface()));
  std::vector<FactTask> all;
  addKernelTasks(all, oldestScan, watch);
  addServiceTasks(all, watch);
  addProbeTasks(all, device_->interface().name, targets_);
  for (FactTask& task : all) {
    task = boundToLink(std::move(task),
                       [watch](const Deadline& deadline) { return watch->change(deadline); });
  }
  return all;
}

void LinuxFacts::addKernelTasks(std::vector<FactTask>& all, std::chrono::seconds oldestScan,
                                const std::shared_ptr<LinkWatch>& watch) {
  // The scan's task writes the first survey before the scan; the task of the surveys reads it
  // afterwards. A driver that blocks in the survey delays only the scan, not the link.
  const auto first = std::make_shared<FirstSurveys>();
  all.push_back({.name = "kernel's answer about the link",
                 .gives = {Fact::link, Fact::radio, Fact::regulatory},
                 .after = {},
                 .limit = kKernelLimit,
                 .run = [this, watch](const facts::Facts&, const Deadline& deadline) -> Found {
                   netlink::Nl80211 kernel;
                   watch->begin(deadline);
                   auto link = kernel.link(device_->interface(), deadline);
                   if (link) watch->setLink(*link);
                   auto radio = kernel.radio(device_->interface(), deadline);
                   auto regulatory = kernel.regulatory(device_->interface(), deadline);
                   return [link, radio, regulatory](facts::Facts& facts) {
                     facts.link = link;
                     facts.radio = radio;
                     facts.regulatory = regulatory;
                   };
                 }});
  all.push_back({.name = "scan",
                 .gives = {Fact::scan},
                 .after = {Fact::link},
                 .limit = kScanLimit,
                 .run = [this, first, oldestScan](const facts::Facts&, const Deadline& deadline) {
                   surveyFirst(*first, deadline.atMost(kFirstSurveyLimit));
                   return put(&facts::Facts::scan, scan(oldestScan, deadline));
                 }});
  all.push_back({.name = "survey of the channels",
                 .gives = {Fact::surveys},
                 .after = {Fact::scan},  // a scan visits the channels
                 .limit = kKernelLimit,
                 .run = [this, first](const facts::Facts&, const Deadline& deadline) {
                   return put(&facts::Facts::surveys, surveysSince(*first, deadline));
                 }});
  all.push_back({.name = "driver's answer about Bluetooth",
                 .gives = {Fact::coexistence},
                 .after = {},
                 .limit = kKernelLimit,
                 .run = [this](const facts::Facts&, const Deadline&) {
                   return put(&facts::Facts::coexistence,
                              readCoexistence(device_->interface().name));
                 }});
}

void LinuxFacts::surveyFirst(FirstSurveys& first, const Deadline& deadline) const {
  auto surveys = netlink::Nl80211().surveys(device_->interface(), deadline);
  const MutexLock lock(first.mutex);
  first.time = Clock::now();
  first.surveys = std::move(surveys);
}

LinuxFacts::FirstSurveys::Surveys LinuxFacts::surveysSince(FirstSurveys& first,
                                                           const Deadline& deadline) const {
  const auto [time, before] = [&first] {
    const MutexLock lock(first.mutex);
    return std::pair(first.time, first.surveys);
  }();
  if (!before) return before;
  sleepUntil(deadline.until(time + kBetweenSurveys));
  auto after = netlink::Nl80211().surveys(device_->interface(), deadline);
  if (!after) return after;
  return netlink::surveysBetween(*before, std::move(*after));
}

void LinuxFacts::addServiceTasks(std::vector<FactTask>& all,
                                 const std::shared_ptr<LinkWatch>& watch) {
  all.push_back({.name = "answer of the connection manager",
                 .gives = {Fact::activeProfile, Fact::savedNetworks, Fact::addresses},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this, watch](const facts::Facts&, const Deadline& deadline) {
                   watch->begin(deadline);
                   return findConnection(deadline);
                 }});
  all.push_back({.name = "answer of BlueZ",
                 .gives = {Fact::bluetooth},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this](const facts::Facts&, const Deadline& deadline) {
                   return put(&facts::Facts::bluetooth,
                              bus::readBluetooth(*device_->systemBus(), deadline));
                 }});
  all.push_back({.name = "answer of the desktop about proxies",
                 .gives = {Fact::sessionProxy},
                 .after = {},
                 .limit = kServicesLimit,
                 .run = [this](const facts::Facts&, const Deadline& deadline) {
                   return put(&facts::Facts::sessionProxy,
                              bus::readSessionProxy(environ, *device_->sessionBus(), deadline));
                 }});
}

// Reads the facts in order of importance: a manager that does not answer may use up the time for
// the later ones.
Found LinuxFacts::findConnection(const Deadline& deadline) {
  const netlink::WifiInterface& wifi = device_->interface();
  const auto read = netlink::readCarrier(wifi.index, deadline);
  const netlink::Carrier carrier =
      read ? *read : netlink::Carrier{.index = wifi.index, .name = wifi.name};
  auto addresses = netlink::readAddressesOfLink(read, deadline);
  bus::ConnectionManager manager(*device_->systemBus());
  const auto servers = manager.dnsServers(carrier.name, deadline);
  if (addresses) {
    if (carrier.index != wifi.index) addresses->carrier = carrier.name;
    addresses->otherWayOut = netlink::otherWayOut(carrier.index, deadline);
    if (servers) addresses->dnsServers = *servers;
    addresses->systemDnsServers =
        bus::readSystemNameServers(*device_->systemBus(), carrier.index, deadline);
    if (addresses->systemDnsServers) {
      const auto towards = [&](const std::string& server) {
        return netlink::interfaceTowards(server, deadline);
      };
      const auto isOfLink = [&](const std::string& server) {
        return server == addresses->ipv4Gateway || server == addresses->ipv6Gateway ||
               netlink::isInOwnSubnet(carrier.index, server, deadline);
      };
      const auto ofLink =
          bus::nameServersThrough(carrier.index, *addresses->systemDnsServers, isOfLink, towards);
      if (!servers) addresses->dnsServers = ofLink;
      if (!ofLink) {
        const auto leavesBy = towards(addresses->systemDnsServers->front());
        if (leavesBy)
          addresses->systemDnsThrough = netlink::readOtherInterface(*leavesBy, deadline);
      }
    }
  }
  auto profile = manager.activeProfile(carrier.name, deadline);
  auto saved = manager.savedNetworks(device_->interface().name, deadline);
  return [profile, saved, addresses](facts::Facts& facts) {
    facts.activeProfile = profile;
    facts.savedNetworks = saved;
    facts.addresses = addresses;
  };
}

}  // namespace wifi_profile::linux
