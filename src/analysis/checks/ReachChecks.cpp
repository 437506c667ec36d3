// Checks of what a member of the network can reach.
#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/checks/Answers.h"
#include "analysis/checks/Rows.h"
#include "analysis/checks/Subject.h"
#include "analysis/facts/IpAddresses.h"

namespace wifi_profile::checks {
namespace {

// Returns `answer(fact)` for the joined network. For other networks and unknown facts, returns the
// reason.
template <class T, class Function>
Answer aboutJoined(const Question& question, const Result<T> facts::Facts::*fact, Function answer) {
  if (const auto why = whyNotAMember(question)) return *why;
  const Result<T>& known = question.facts.*fact;
  if (!known) return known.error();
  return answer(*known);
}

// Returns the round trips in milliseconds, at most as many as pings were sent.
std::vector<double> roundTrips(const facts::Pings& pings) {
  std::vector<double> times;
  for (const auto& answer : pings.answers) {
    if (times.size() >= static_cast<std::size_t>(pings.sent)) break;
    const double milliseconds = answer.count() * 1000;
    if (std::isfinite(milliseconds) && milliseconds >= 0) times.push_back(milliseconds);
  }
  return times;
}

std::shared_ptr<PingResultRecord> recordOf(const facts::Pings& pings,
                                           const std::vector<double>& times) {
  auto record = std::make_shared<PingResultRecord>();
  const auto count = static_cast<double>(times.size());
  record->count = pings.sent;
  record->packetLoss = 100 * (pings.sent - count) / pings.sent;
  record->min = *std::ranges::min_element(times);
  record->max = *std::ranges::max_element(times);
  for (const double time : times) record->avg += time;
  record->avg /= count;
  double variance = 0;
  for (const double time : times) variance += (time - record->avg) * (time - record->avg);
  record->stddev = std::sqrt(variance / count);
  record->timestamp = pings.started.secondsSinceReferenceDate;
  return record;
}

Answer pingsAnswered(const Question& question, Result<facts::Pings> facts::Facts::*fact) {
  return aboutJoined<facts::Pings>(question, fact, [&](const facts::Pings& pings) -> Answer {
    if (pings.sent < 1) {
      return Error{Reason::failed, "No ping could be sent: check the system's log."};
    }
    const auto times = roundTrips(pings);
    if (times.empty() && pings.isNeighbour) return ability(true);
    if (times.empty()) return ability(false);
    auto record = recordOf(pings, times);
    if (question.facts.link) record->interfaceName = makeText(question.facts.link->interface);
    return ability(true, {{"PingResult", std::move(record)}});
  });
}

Answer pingLan(const Question& question) {
  return pingsAnswered(question, &facts::Facts::lanPings);
}
Answer pingWan(const Question& question) {
  return pingsAnswered(question, &facts::Facts::wanPings);
}

Answer resolveDns(const Question& question) {
  return aboutJoined<facts::NameResolution>(
      question, &facts::Facts::nameResolution,
      [](const facts::NameResolution& resolution) { return ability(resolution.resolved); });
}

Answer reachSite(const Question& question) {
  return aboutJoined<facts::SiteReach>(
      question, &facts::Facts::siteReach,
      [](const facts::SiteReach& site) { return ability(site.reached); });
}

Answer retrievePage(const Question& question) {
  return aboutJoined<facts::SitePage>(
      question, &facts::Facts::sitePage,
      [](const facts::SitePage& page) { return ability(page.retrieved); });
}

Answer doubleNat(const Question& question) {
  return aboutJoined<facts::RouterOutside>(
      question, &facts::Facts::routerOutside, [](const facts::RouterOutside& outside) -> Answer {
        const auto kindOf = [](const auto& address) {
          return address ? facts::ipv4KindOf(*address) : std::nullopt;
        };
        // The address that the router reports decides. An address of any other kind belongs to a
        // router that is not connected.
        const auto own = kindOf(outside.address);
        if (own && facts::isBehindTranslation(*own)) return finding(true);
        if (own == facts::Ipv4Kind::global) return finding(false);
        const auto next = kindOf(outside.secondHop);
        if (next == facts::Ipv4Kind::global) return finding(false);
        if (next && facts::isBehindTranslation(*next)) {
          return notTold(
              "The second router on the path (" + *outside.secondHop +
              ") has an address that is translated again, but the router does not report "
              "whether it also translates: allow UPnP or NAT-PMP in the router.");
        }
        return notTold(
            "The router does not report its external address, and the second router on the path "
            "does "
            "not answer: allow UPnP or NAT-PMP in the router.");
      });
}

// True if an address is valid beyond the link.
bool hasWideIpv6(const facts::Addresses& addresses) {
  return std::ranges::any_of(addresses.ipv6, [](const std::string& address) {
    const auto kind = facts::ipv6KindOf(address);
    return kind && *kind != facts::Ipv6Kind::other;
  });
}

Answer ipv4Assigned(const Question& question) {
  return aboutJoined<facts::Addresses>(
      question, &facts::Facts::addresses, [](const facts::Addresses& addresses) -> Answer {
        const bool assigned = std::ranges::any_of(addresses.ipv4, [](const std::string& address) {
          const auto kind = facts::ipv4KindOf(address);
          return kind == facts::Ipv4Kind::global || (kind && facts::isBehindTranslation(*kind));
        });
        if (!assigned && addresses.ipv4.empty() && addresses.ipv6Gateway &&
            hasWideIpv6(addresses)) {
          return notTold(
              "The network assigns IPv6 addresses only: check the router's DHCP settings if it "
              "should "
              "assign IPv4 addresses, too.");
        }
        return ability(assigned);
      });
}

Answer ipv6Assigned(const Question& question) {
  return aboutJoined<facts::Addresses>(
      question, &facts::Facts::addresses,
      [](const facts::Addresses& addresses) { return ability(hasWideIpv6(addresses)); });
}

constexpr std::string_view kPingsWhy =
    "ICMP echo: RFC 792, RFC 4443. count is the number of pings sent; packetLoss is a percentage, "
    "0 to 100; min, avg, max and stddev (of the population) are in milliseconds";

constexpr std::array kReachRows{
    Check{.id = DiagnosticsTestID::PingLAN,
          .answer = pingLan,
          .needs = {facts::Fact::link, facts::Fact::lanPings},
          .measures = "Whether the router answers, and how fast.",
          .from = "ICMP or ICMPv6 echo requests through the Wi-Fi interface, if the kernel lets "
                  "this user send them. If not all are answered after 1 s, or none can be sent, "
                  "also TCP connections; a refused connection is an answer. If nothing answers, "
                  "the kernel's neighbour entry (RTM_GETNEIGH), which has no times",
          .threshold = "one answer to 3 pings, sent 0.1 s apart, within 4 s in all; or a neighbour "
                       "entry that is reachable (NUD_REACHABLE) at most 2.5 s later and was "
                       "confirmed (NDA_CACHEINFO) after the pings began",
          .why = kPingsWhy,
          .unknownWhen = "not joined, no router is known, or no ping could be sent"},
    Check{.id = DiagnosticsTestID::PingWAN,
          .answer = pingWan,
          .needs = {facts::Fact::link, facts::Fact::wanPings, facts::Fact::addresses},
          .measures = "Whether a host in the Internet answers, and how fast.",
          .from = "ICMP or ICMPv6 echo requests and TCP connections, as for PingLAN. If the "
                  "system's own packets to the Internet leave by another interface, such as a "
                  "tunnel (RTM_GETROUTE), the answer says so",
          .threshold = "one answer to 3 pings, sent 0.1 s apart, within 4 s in all",
          .why = kPingsWhy,
          .unknownWhen = "not joined; the host's name cannot be looked up, or its address belongs "
                         "to the local network; no ping could be sent; or only another interface "
                         "has a default route, which applies to everything that is to be reached"},
    Check{.id = DiagnosticsTestID::ResolveDNS,
          .answer = resolveDns,
          .needs = {facts::Fact::link, facts::Fact::nameResolution},
          .measures = "Whether the link's DNS servers return an address for a name, and whether "
                      "those that the system asks do, if they are others.",
          .from = "queries for A and AAAA records. With NetworkManager they go through the Wi-Fi "
                  "interface to the name servers that it has for the link. Without it, they go the "
                  "same way to those of the system's servers that are the link's router, are in "
                  "one of its subnets, or are routed through it (RTM_GETROUTE). If none of the "
                  "system's own servers (resolv.conf, and if that names systemd-resolved, its "
                  "property DNS) belongs to the link, they are asked by the route that the system "
                  "takes, also if the link has no known servers, such as with a tunnel",
          .threshold =
              "one address that a site can have (not 0/8, 127/8, 169.254/16, 224/3, ::, ::1, "
              "fe80::/10, ff00::/8), after two tries of 2 s for each server, within 8 s in all",
          .why = "DNS: RFC 1035, RFC 3596",
          .unknownWhen =
              "not joined; the query could not be sent; or no server of the link is known, and the "
              "system's servers are reached through another interface that is not a tunnel"},
    Check{.id = DiagnosticsTestID::DetectDoubleNAT,
          .answer = doubleNat,
          .needs = {facts::Fact::link, facts::Fact::routerOutside},
          .measures =
              "Whether the router's external address is one that is translated again. If the "
              "router does not report it, a second router on the path with a global address "
              "means no. One with a private address means nothing, because providers use "
              "these inside their networks, and the first router may only route.",
          .from = "NAT-PMP, UPnP IGD (GetExternalIPAddress); the sender of ICMP Time Exceeded for "
                  "packets that may take two hops",
          .threshold = "10/8, 172.16/12, 192.168/16 (RFC 1918), 100.64/10 (RFC 6598), "
                       "192.0.0/24 (RFC 6333)",
          .why = "These addresses are not routed in the Internet. NAT-PMP: RFC 6886",
          .unknownWhen = "not joined, or neither address decides"},
    Check{.id = DiagnosticsTestID::ReachOrvane,
          .answer = reachSite,
          .needs = {facts::Fact::link, facts::Fact::siteReach},
          .measures = "Whether the site of the settings accepts connections.",
          .from = "a TCP connection, and for https a TLS handshake with a trusted certificate",
          .threshold = "connected within 5 s",
          .why = "A filter may let pings through and block connections",
          .unknownWhen =
              "not joined, or this computer cannot ask (no trusted certificates, no memory)"},
    Check{.id = DiagnosticsTestID::RetrieveOrvane,
          .answer = retrievePage,
          .needs = {facts::Fact::link, facts::Fact::sitePage},
          .measures = "Whether the page of the settings arrives as expected.",
          .from = "HTTP GET",
          .threshold = "status 200, with the expected content in the first 64 KiB, within 10 s, of "
                       "which 5 s for a connection, after at most 5 redirects",
          .why = "Sign-in pages and filters answer in place of sites. HTTP: RFC 9110",
          .unknownWhen =
              "not joined; the page is longer than 64 KiB, and the expected content is not in the "
              "first 64 KiB; or this computer cannot ask (no trusted certificates, no memory)"},
    Check{.id = DiagnosticsTestID::IPv4Assigned,
          .answer = ipv4Assigned,
          .needs = {facts::Fact::link, facts::Fact::addresses},
          .measures = "Whether the Wi-Fi interface has an IPv4 address that the network can use.",
          .from = "rtnetlink (RTM_GETADDR)",
          .threshold = "one address, except 169.254/16 (RFC 3927), which a device gives itself, "
                       "and 0/8, 127/8, 224/4 and 240/4",
          .why = "Without one, IPv4 reaches the neighbours at most",
          .unknownWhen = "not joined; the kernel does not report the addresses; or there are only "
                         "IPv6 addresses and an IPv6 router"},
    Check{.id = DiagnosticsTestID::IPv6Assigned,
          .answer = ipv6Assigned,
          .needs = {facts::Fact::link, facts::Fact::addresses},
          .measures =
              "Whether the Wi-Fi interface has an IPv6 address that is valid beyond the link.",
          .from = "rtnetlink (RTM_GETADDR), without tentative addresses",
          .threshold = "one address of 2000::/3 (RFC 4291) or fc00::/7 (RFC 4193)",
          .why =
              "A link-local address (fe80::/10) is always there and says nothing about the network",
          .unknownWhen = "not joined, or the kernel does not report the addresses"},
};

std::string problemIn(const facts::Pings& pings) {
  if (!pings.answers.empty() || pings.isNeighbour) return {};
  return (pings.byConnecting ? "no connection was answered by " : "no echo was answered by ") +
         pings.target;
}
std::string problemIn(const facts::SiteReach& site) { return site.reached ? "" : site.problem; }
std::string problemIn(const facts::SitePage& page) { return page.retrieved ? "" : page.problem; }
std::string problemIn(const facts::PortalProbe& probe) {
  return probe.answer == facts::PortalProbe::Answer::portal ? probe.detail : "";
}

template <class T>
std::string problemSentence(std::string_view what, const Result<T>& fact) {
  const std::string problem = fact ? problemIn(*fact) : "";
  return problem.empty() ? "" : std::string("The ").append(what) + ": " + problem + ".";
}

std::string lookUpFailure(const facts::Facts& facts) {
  const auto& resolution = facts.nameResolution;
  if (!resolution || resolution->resolved || resolution->problem.empty()) return {};
  const std::string name = resolution->name.empty() ? "" : " of " + resolution->name;
  return "DNS lookup" + name + " failed: " + resolution->problem + ".";
}

// What programs reach is not reached through Wi-Fi then.
std::string otherWayOut(const facts::Facts& facts) {
  if (!facts.addresses || !facts.addresses->otherWayOut) return {};
  return "Other programs reach the Internet through " + *facts.addresses->otherWayOut +
         ", not through the tested Wi-Fi link.";
}

std::string joined(std::string first, const std::string& second) {
  if (!first.empty() && !second.empty()) first += ' ';
  return first + second;
}

}  // namespace

std::string problemOf(const Question& question, DiagnosticsTestID id) {
  if (whyNotAMember(question)) return {};
  const facts::Facts& facts = question.facts;
  switch (id) {
    case DiagnosticsTestID::PingLAN:
      return problemSentence("ping of the router", facts.lanPings);
    case DiagnosticsTestID::PingWAN:
      return joined(problemSentence("ping of the Internet", facts.wanPings), otherWayOut(facts));
    case DiagnosticsTestID::ResolveDNS:
      return lookUpFailure(facts);
    case DiagnosticsTestID::CaptivePortal:
      return problemSentence("check for a sign-in page", facts.portalProbe);
    case DiagnosticsTestID::ReachOrvane:
      return problemSentence("connection to the site", facts.siteReach);
    case DiagnosticsTestID::RetrieveOrvane:
      return problemSentence("page of the site", facts.sitePage);
    default:
      return {};
  }
}

std::span<const Check> reachChecks() { return kReachRows; }

}  // namespace wifi_profile::checks
