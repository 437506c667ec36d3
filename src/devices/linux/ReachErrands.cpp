#include "devices/linux/ReachErrands.h"

#include <algorithm>
#include <cerrno>
#include <future>
#include <system_error>

#include "checks/IpAddresses.h"
#include "checks/NameServers.h"
#include "devices/linux/reach/Names.h"
#include "devices/linux/reach/Outside.h"
#include "devices/linux/reach/Ping.h"
#include "devices/linux/reach/Sockets.h"
#include "devices/linux/reach/Web.h"

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::Facts;
using checks::Known;
using checks::Reason;
using checks::Unknown;
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
Way wayThrough(const std::string& interface, const checks::Addresses& addresses) {
  Way way{addresses.carrier.value_or(interface), addresses.dnsServers};
  const bool hasNone = !way.nameServers || way.nameServers->empty();
  if (hasNone && addresses.systemDnsServers) {
    way.nameServers = addresses.systemDnsServers;
    way.asksAsSystem = true;
  }
  return way;
}

// Returns the reason if a tunnel has replaced the link's default route: nothing beyond the link can
// then be reached through it.
std::optional<Unknown> whyNoWayOut(const std::string& interface,
                                   const checks::Addresses& addresses) {
  if (!addresses.otherWayOut || addresses.ipv4Gateway || addresses.ipv6Gateway) return {};
  return Unknown{Reason::notTold, "The default route goes through " + *addresses.otherWayOut +
                                      ", and none through " +
                                      addresses.carrier.value_or(interface) +
                                      ": end the other connection, and try again."};
}

// The parts in which these tasks differ. All of them first check that there is a link and an
// address.
template <class T>
struct ReachErrand {
  std::string name;
  Fact fact;
  Known<T> Facts::*member;
  milliseconds limit;
  std::function<Known<T>(const Facts& known, const Way& way, const Patience& patience)> find;
};

template <class T>
void add(std::vector<Errand>& errands, const std::string& interface, ReachErrand<T> reach) {
  errands.push_back(
      {.name = reach.name,
       .gives = {reach.fact},
       .after = {Fact::link, Fact::scan, Fact::addresses, Fact::activeProfile},
       .limit = reach.limit,
       .run = [interface, reach](const Facts& known, const Patience& patience) -> Found {
         Known<T> fact;
         if (!known.link) {
           fact = known.link.why();
         } else if (!known.addresses) {
           fact = known.addresses.why();
         } else if (auto why = whyNoWayOut(interface, *known.addresses)) {
           fact = *why;
         } else {
           fact = reach.find(known, wayThrough(interface, *known.addresses), patience);
         }
         return [member = reach.member, fact](Facts& facts) { facts.*member = fact; };
       }});
}

Unknown noRouter() {
  return {checks::Reason::notTold,
          "The network named no router: renew the address (join again), or look at the router's "
          "DHCP settings."};
}

Unknown noIpv4Router() {
  return {
      checks::Reason::notTold,
      "The network has only an IPv6 router, which does not translate addresses. Nothing needs to "
      "be done."};
}

// Whether the address belongs to this network or machine rather than to the Internet.
bool isOfTheHouse(const std::string& address) {
  const auto ofIPv4 = checks::ipv4KindOf(address);
  if (ofIPv4) return *ofIPv4 != checks::Ipv4Kind::global;
  return checks::ipv6KindOf(address) == checks::Ipv6Kind::uniqueLocal || address == "::1" ||
         address == "::" || address.starts_with("fe80:");
}

// Returns the first IPv6 address if the network has only an IPv6 router, else the first IPv4
// address; if there is no such address, the first one.
const std::string& reachable(const std::vector<std::string>& addresses,
                             const checks::Addresses& own) {
  const bool byIPv6 = !own.ipv4Gateway && own.ipv6Gateway;
  const auto found = std::ranges::find_if(addresses, [byIPv6](const std::string& address) {
    return (address.find(':') != std::string::npos) == byIPv6;
  });
  return found == addresses.end() ? addresses.front() : *found;
}

Known<std::string> addressInTheInternet(const std::string& host, const checks::Addresses& own,
                                        const Way& way, const Patience& patience) {
  const auto answer = resolve(host, way, patience);
  if (!answer) return answer.why();
  if (answer->addresses.empty()) {
    return Unknown{checks::Reason::failed,
                   "The address of " + host + " could not be looked up (" +
                       answer->resolution.problem +
                       "): fix DNS first, or set a numeric address to ping."};
  }
  const std::string& address = reachable(answer->addresses, own);
  if (address == host || !isOfTheHouse(address)) return address;
  return Unknown{checks::Reason::failed,
                 "DNS gives the private address " + address + " for " + host +
                     ": sign in to the network first, or set a numeric address to ping."};
}

Known<checks::Pings> pingRouter(const Facts& known, const Way& way, const Patience& patience) {
  const auto& addresses = *known.addresses;
  const auto& router = addresses.ipv4Gateway ? addresses.ipv4Gateway : addresses.ipv6Gateway;
  if (!router) return noRouter();
  PingPlan plan;
  plan.isOnLink = true;
  return ping(*router, way.interface, plan, patience);
}

Known<checks::Pings> pingInternet(const Facts& known, const std::string& host, const Way& way,
                                  const Patience& patience) {
  const auto address = addressInTheInternet(host, *known.addresses, way, patience);
  if (!address) return address.why();
  return ping(*address, way.interface, {}, patience);
}

// Looks the name up at the link's servers and, in parallel, at the system's servers if these are
// others. Both must know the name.
Known<checks::NameResolution> lookUp(const std::string& name, const checks::Addresses& addresses,
                                     const Way& way, const Patience& patience) {
  const auto& through = addresses.systemDnsThrough;
  if (way.asksAsSystem && through && !through->isTunnel) {
    return Unknown{Reason::notTold,
                   "The network's name servers are not known, and the system asks others through " +
                       through->name + ": end the other connection, and try again."};
  }
  std::future<Known<NameAnswer>> asSystem;
  if (!way.asksAsSystem && checks::asksOthers(addresses)) {
    try {
      asSystem = std::async(std::launch::async, [&] {
        return resolveAsSystem(name, *addresses.systemDnsServers, patience);
      });
    } catch (const std::system_error&) {
      return noSocket(EMFILE, {});  // no thread left
    }
  }
  const auto answer = resolve(name, way, patience);
  if (!answer) return answer.why();
  if (!asSystem.valid() || !answer->resolution.resolved) return answer->resolution;
  const auto other = asSystem.get();
  if (!other) return other.why();
  if (other->resolution.resolved) return answer->resolution;
  checks::NameResolution unresolved = other->resolution;
  unresolved.problem = "the system's own name servers (" +
                       shortText(addresses.systemDnsServers->front()) + "): " + unresolved.problem;
  return unresolved;
}

}  // namespace

void addReachErrands(std::vector<Errand>& errands, const std::string& interface,
                     const Targets& targets) {
  add<checks::Pings>(
      errands, interface,
      {"ping of the router", Fact::lanPings, &Facts::lanPings, kRouterLimit, pingRouter});
  add<checks::Pings>(
      errands, interface,
      {"ping of the Internet", Fact::wanPings, &Facts::wanPings, kNameLimit + kPingLimit,
       [targets](const Facts& known, const Way& way, const Patience& patience) {
         return pingInternet(known, targets.pingHost, way, patience);
       }});
  add<checks::NameResolution>(
      errands, interface,
      {"look-up of a name", Fact::nameResolution, &Facts::nameResolution, kNameLimit,
       [targets](const Facts& known, const Way& way, const Patience& patience) {
         return lookUp(targets.name, *known.addresses, way, patience);
       }});
  add<checks::PortalProbe>(
      errands, interface,
      {"look for a sign-in page", Fact::portalProbe, &Facts::portalProbe, kPortalLimit,
       [targets](const Facts& known, const Way& way, const Patience& patience) {
         const auto& profile = known.activeProfile;
         return probePortal({.url = targets.portalUrl,
                             .expectedText = targets.portalText,
                             .apiUrl = profile ? profile->captivePortalApi.value_or("") : ""},
                            way, patience);
       }});
  add<checks::SiteReach>(errands, interface,
                         {"connection to the site", Fact::siteReach, &Facts::siteReach, kReachLimit,
                          [targets](const Facts&, const Way& way, const Patience& patience) {
                            return reachSite(targets.siteUrl, way, patience);
                          }});
  add<checks::SitePage>(errands, interface,
                        {"page of the site", Fact::sitePage, &Facts::sitePage, kPageLimit,
                         [targets](const Facts&, const Way& way, const Patience& patience) {
                           return retrievePage(targets.siteUrl, targets.siteText, way, patience);
                         }});
  add<checks::RouterOutside>(
      errands, interface,
      {"look at the router's outside", Fact::routerOutside, &Facts::routerOutside, kOutsideLimit,
       [targets](const Facts& known, const Way& way,
                 const Patience& patience) -> Known<checks::RouterOutside> {
         const auto& gateway = known.addresses->ipv4Gateway;
         if (!gateway) return known.addresses->ipv6Gateway ? noIpv4Router() : noRouter();
         return routerOutside(*gateway, targets.pingHost, way, patience);
       }});
  // This task measures no times, and repeats packets that the scan delays or loses.
  errands.back().after = {Fact::link, Fact::addresses, Fact::activeProfile};
}

}  // namespace wifi_profile::machine
