#include "devices/linux/ProbeTasks.h"

#include <algorithm>
#include <optional>

#include "analysis/facts/IpAddresses.h"
#include "analysis/facts/NameServers.h"
#include "devices/linux/Workers.h"
#include "devices/linux/probes/ExternalAddress.h"
#include "devices/linux/probes/Names.h"
#include "devices/linux/probes/Ping.h"
#include "devices/linux/probes/Portal.h"
#include "devices/linux/probes/Site.h"
#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux {
namespace {

using facts::Fact;
using facts::Facts;
using std::chrono::milliseconds;

// Longest times. None exceeds 13 s, so that all tasks end within 15 s of the scan.
constexpr milliseconds kNameLimit{8'500};
constexpr milliseconds kPingLimit{4'500};
constexpr milliseconds kRouterLimit{7'000};
constexpr milliseconds kOutsideLimit{4'000};
constexpr milliseconds kPortalLimit{5'500};
constexpr milliseconds kReachLimit{5'500};
constexpr milliseconds kPageLimit{10'500};

// Uses the system's name servers if the link has none, or its servers are not known.
probes::Route routeThrough(const std::string& interface, const facts::Addresses& addresses) {
  probes::Route route{addresses.carrier.value_or(interface), addresses.dnsServers};
  const bool hasNone = !route.nameServers || route.nameServers->empty();
  if (hasNone && addresses.systemDnsServers) {
    route.nameServers = addresses.systemDnsServers;
    route.asksAsSystem = true;
  }
  return route;
}

// Returns the reason if a tunnel has replaced the link's default route: nothing beyond the link can
// then be reached through it.
std::optional<Error> whyNoWayOut(const std::string& interface, const facts::Addresses& addresses) {
  if (!addresses.otherWayOut || addresses.ipv4Gateway || addresses.ipv6Gateway) return {};
  return Error{Reason::notTold, "The default route goes through " + *addresses.otherWayOut +
                                    ", and none through " + addresses.carrier.value_or(interface) +
                                    ": end the other connection, and try again."};
}

// The parts in which these tasks differ. All of them first check that there is a link and an
// address.
template <class T>
struct ProbeTask {
  std::string name;
  Fact fact;
  Result<T> Facts::*member;
  milliseconds limit;
  std::function<Result<T>(const Facts& known, const probes::Route& route, const Deadline& deadline)>
      find;
};

template <class T>
void add(std::vector<FactTask>& tasks, const std::string& interface, ProbeTask<T> reach) {
  tasks.push_back(
      {.name = reach.name,
       .gives = {reach.fact},
       .after = {Fact::link, Fact::scan, Fact::addresses, Fact::activeProfile},
       .limit = reach.limit,
       .run = [interface, reach](const Facts& known, const Deadline& deadline) -> Found {
         Result<T> fact;
         if (!known.link) {
           fact = known.link.error();
         } else if (!known.addresses) {
           fact = known.addresses.error();
         } else if (auto why = whyNoWayOut(interface, *known.addresses)) {
           fact = *why;
         } else {
           fact = reach.find(known, routeThrough(interface, *known.addresses), deadline);
         }
         return [member = reach.member, fact](Facts& facts) { facts.*member = fact; };
       }});
}

Error noRouter() {
  return {Reason::notTold,
          "The network named no router: renew the address (join again), or look at the router's "
          "DHCP settings."};
}

Error noIpv4Router() {
  return {
      Reason::notTold,
      "The network has only an IPv6 router, which does not translate addresses. Nothing needs to "
      "be done."};
}

// Whether the address belongs to this network or machine rather than to the Internet.
bool isOfTheHouse(const std::string& address) {
  const auto ofIPv4 = facts::ipv4KindOf(address);
  if (ofIPv4) return *ofIPv4 != facts::Ipv4Kind::global;
  return facts::ipv6KindOf(address) == facts::Ipv6Kind::uniqueLocal || address == "::1" ||
         address == "::" || address.starts_with("fe80:");
}

// Returns the first IPv6 address if the network has only an IPv6 router, else the first IPv4
// address; if there is no such address, the first one.
const std::string& reachable(const std::vector<std::string>& addresses,
                             const facts::Addresses& own) {
  const bool byIPv6 = !own.ipv4Gateway && own.ipv6Gateway;
  const auto found = std::ranges::find_if(addresses, [byIPv6](const std::string& address) {
    return (address.find(':') != std::string::npos) == byIPv6;
  });
  return found == addresses.end() ? addresses.front() : *found;
}

Result<std::string> addressInTheInternet(const std::string& host, const facts::Addresses& own,
                                         const probes::Route& route, const Deadline& deadline) {
  const auto answer = probes::resolve(host, route, deadline);
  if (!answer) return answer.error();
  if (answer->addresses.empty()) {
    return Error{Reason::failed, "The address of " + host + " could not be looked up (" +
                                     answer->resolution.problem +
                                     "): fix DNS first, or set a numeric address to ping."};
  }
  const std::string& address = reachable(answer->addresses, own);
  if (address == host || !isOfTheHouse(address)) return address;
  return Error{Reason::failed,
               "DNS gives the private address " + address + " for " + host +
                   ": sign in to the network first, or set a numeric address to ping."};
}

Result<facts::Pings> pingRouter(const Facts& known, const probes::Route& route,
                                const Deadline& deadline) {
  const auto& addresses = *known.addresses;
  const auto& router = addresses.ipv4Gateway ? addresses.ipv4Gateway : addresses.ipv6Gateway;
  if (!router) return noRouter();
  probes::PingPlan plan;
  plan.isOnLink = true;
  return probes::ping(*router, route.interface, plan, deadline);
}

Result<facts::Pings> pingInternet(const Facts& known, const std::string& host,
                                  const probes::Route& route, const Deadline& deadline) {
  const auto address = addressInTheInternet(host, *known.addresses, route, deadline);
  if (!address) return address.error();
  return probes::ping(*address, route.interface, {}, deadline);
}

// Looks the name up at the link's servers and, in parallel, at the system's servers if these are
// others. Both must know the name.
Result<facts::NameResolution> lookUp(const std::string& name, const facts::Addresses& addresses,
                                     const probes::Route& route, const Deadline& deadline) {
  const auto& through = addresses.systemDnsThrough;
  if (route.asksAsSystem && through && !through->isTunnel) {
    return Error{Reason::notTold,
                 "The network's name servers are not known, and the system asks others through " +
                     through->name + ": end the other connection, and try again."};
  }
  std::optional<Alongside<Result<probes::NameAnswer>>> asSystem;
  if (!route.asksAsSystem && facts::asksOthers(addresses)) {
    asSystem.emplace(
        [&] { return probes::resolveAsSystem(name, *addresses.systemDnsServers, deadline); });
  }
  const auto answer = probes::resolve(name, route, deadline);
  if (!answer) return answer.error();
  if (!asSystem || !answer->resolution.resolved) return answer->resolution;
  const auto other = asSystem->get();
  if (!other) return other.error();
  if (other->resolution.resolved) return answer->resolution;
  facts::NameResolution unresolved = other->resolution;
  unresolved.problem = "the system's own name servers (" +
                       probes::shortText(addresses.systemDnsServers->front()) +
                       "): " + unresolved.problem;
  return unresolved;
}

}  // namespace

void addProbeTasks(std::vector<FactTask>& tasks, const std::string& interface,
                   const devices::Targets& targets) {
  add<facts::Pings>(
      tasks, interface,
      {"ping of the router", Fact::lanPings, &Facts::lanPings, kRouterLimit, pingRouter});
  add<facts::Pings>(
      tasks, interface,
      {"ping of the Internet", Fact::wanPings, &Facts::wanPings, kNameLimit + kPingLimit,
       [targets](const Facts& known, const probes::Route& route, const Deadline& deadline) {
         return pingInternet(known, targets.pingHost, route, deadline);
       }});
  add<facts::NameResolution>(
      tasks, interface,
      {"look-up of a name", Fact::nameResolution, &Facts::nameResolution, kNameLimit,
       [targets](const Facts& known, const probes::Route& route, const Deadline& deadline) {
         return lookUp(targets.name, *known.addresses, route, deadline);
       }});
  add<facts::PortalProbe>(
      tasks, interface,
      {"check for a sign-in page", Fact::portalProbe, &Facts::portalProbe, kPortalLimit,
       [targets](const Facts& known, const probes::Route& route, const Deadline& deadline) {
         const auto& profile = known.activeProfile;
         return probes::probePortal(
             {.url = targets.portalUrl,
              .expectedText = targets.portalText,
              .apiUrl = profile ? profile->captivePortalApi.value_or("") : ""},
             route, deadline);
       }});
  add<facts::SiteReach>(
      tasks, interface,
      {"connection to the site", Fact::siteReach, &Facts::siteReach, kReachLimit,
       [targets](const Facts&, const probes::Route& route, const Deadline& deadline) {
         return probes::reachSite(targets.siteUrl, route, deadline);
       }});
  add<facts::SitePage>(
      tasks, interface,
      {"page of the site", Fact::sitePage, &Facts::sitePage, kPageLimit,
       [targets](const Facts&, const probes::Route& route, const Deadline& deadline) {
         return probes::retrievePage(targets.siteUrl, targets.siteText, route, deadline);
       }});
  add<facts::RouterOutside>(
      tasks, interface,
      {"external address of the router", Fact::routerOutside, &Facts::routerOutside, kOutsideLimit,
       [targets](const Facts& known, const probes::Route& route,
                 const Deadline& deadline) -> Result<facts::RouterOutside> {
         const auto& gateway = known.addresses->ipv4Gateway;
         if (!gateway) return known.addresses->ipv6Gateway ? noIpv4Router() : noRouter();
         return probes::routerOutside(*gateway, targets.pingHost, route, deadline);
       }});
  // This task measures no times, and repeats packets that the scan delays or loses.
  tasks.back().after = {Fact::link, Fact::addresses, Fact::activeProfile};
}

}  // namespace wifi_profile::linux
