// What goes through the interface, where nothing can: no link, no address, no router.

#include <algorithm>
#include <gtest/gtest.h>

#include "devices/linux/Lines.h"
#include "devices/linux/ReachErrands.h"
#include "devices/linux/reach/LocalServers.h"

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::Facts;
using checks::Reason;
using checks::Unknown;

constexpr Fact kReachFacts[]{Fact::lanPings,     Fact::wanPings,  Fact::nameResolution,
                             Fact::portalProbe,  Fact::siteReach, Fact::sitePage,
                             Fact::routerOutside};

// Why a fact of this kind is not known; nothing: it is.
std::optional<Unknown> whyNot(const Facts& facts, Fact fact) {
  const auto why = [](const auto& known) {
    return known ? std::nullopt : std::optional<Unknown>(known.why());
  };
  switch (fact) {
    case Fact::lanPings:
      return why(facts.lanPings);
    case Fact::wanPings:
      return why(facts.wanPings);
    case Fact::nameResolution:
      return why(facts.nameResolution);
    case Fact::portalProbe:
      return why(facts.portalProbe);
    case Fact::siteReach:
      return why(facts.siteReach);
    case Fact::sitePage:
      return why(facts.sitePage);
    default:
      return why(facts.routerOutside);
  }
}

class ReachErrands : public testing::Test {
 protected:
  ReachErrands() { addReachErrands(errands_, "lo", {}); }

  const Errand& errandOf(Fact fact) const {
    return *std::find_if(errands_.begin(), errands_.end(),
                         [fact](const Errand& errand) { return errand.gives.holds(fact); });
  }
  // Its patience is over, so an errand that tried to send something would find that out only.
  Unknown whyNotAfter(Fact fact, const Facts& known) const {
    Facts facts;
    errandOf(fact).run(known, {Clock::now(), cancellation_})(facts);
    return whyNot(facts, fact).value_or(Unknown{Reason::failed, "It is known."});
  }

  std::shared_ptr<Lines> log_ = std::make_shared<Lines>();
  ScopedInstall<DiagnosticLog> installedLog_{log_};
  std::vector<Errand> errands_;
  Cancellation cancellation_;
};

TEST_F(ReachErrands, GiveEachFactOnce) {
  EXPECT_EQ(errands_.size(), std::size(kReachFacts));
  for (const Fact fact : kReachFacts) {
    EXPECT_EQ(std::count_if(errands_.begin(), errands_.end(),
                            [fact](const Errand& errand) { return errand.gives.holds(fact); }),
              1);
  }
}

TEST_F(ReachErrands, BeginAfterTheScanAndEndWithin15SecondsOfIt) {
  for (const Errand& errand : errands_) {
    for (const Fact fact : {Fact::link, Fact::addresses, Fact::activeProfile}) {
      EXPECT_TRUE(errand.after.holds(fact)) << errand.name;
    }
    // What only asks the router need not wait for the radio.
    EXPECT_NE(errand.after.holds(Fact::scan), errand.gives.holds(Fact::routerOutside))
        << errand.name;
    EXPECT_FALSE(errand.after.meets({Fact::lanPings, Fact::nameResolution})) << errand.name;
    EXPECT_LE(errand.limit, std::chrono::seconds(15)) << errand.name;
  }
}

TEST_F(ReachErrands, WithoutALinkSayWhyThereIsNone) {
  Facts known;
  known.link = Unknown{Reason::notJoined, "There is no link."};
  known.addresses = checks::Addresses{.ipv4Gateway = "127.0.0.1"};
  for (const Fact fact : kReachFacts) {
    EXPECT_EQ(whyNotAfter(fact, known), known.link.why()) << errandOf(fact).name;
  }
}

TEST_F(ReachErrands, WithoutAddressesSayWhyThereAreNone) {
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = Unknown{Reason::failed, "There are no addresses."};
  for (const Fact fact : kReachFacts) {
    EXPECT_EQ(whyNotAfter(fact, known), known.addresses.why()) << errandOf(fact).name;
  }
}

TEST_F(ReachErrands, WithoutARouterSayThatTheNetworkNamedNone) {
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = checks::Addresses{};
  for (const Fact fact : {Fact::lanPings, Fact::routerOutside}) {
    const Unknown why = whyNotAfter(fact, known);
    EXPECT_EQ(why.reason, Reason::notTold);
    EXPECT_NE(why.sentence.find("named no router"), std::string::npos) << why.sentence;
  }
}

TEST_F(ReachErrands, WithARouterOfIpv6OnlySayThatThereIsNothingToTranslate) {
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = checks::Addresses{.ipv6Gateway = "fe80::1"};
  const Unknown why = whyNotAfter(Fact::routerOutside, known);
  EXPECT_EQ(why.reason, Reason::notTold);
  EXPECT_EQ(why.sentence.find("named no router"), std::string::npos) << why.sentence;
}

TEST_F(ReachErrands, SendNothingWhereOnlyAnotherInterfaceHasADefaultRoute) {
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = checks::Addresses{.otherWayOut = "tun0"};
  for (const Fact fact : kReachFacts) {
    EXPECT_EQ(whyNotAfter(fact, known).sentence,
              "The default route goes through tun0, and none through lo: end the other "
              "connection, and try again.");
  }
}

TEST_F(ReachErrands, GoThroughTheBondOrBridgeThatHasTheAddresses) {
  std::vector<Errand> errands;
  addReachErrands(errands, "no-such0", {});
  Facts known;
  known.link = checks::Link{.interface = "no-such0", .ssid = "Home"};
  known.addresses = checks::Addresses{.ipv4Gateway = "127.0.0.1", .carrier = "lo"};
  Facts facts;
  errands.front().run(known, patient(cancellation_))(facts);
  ASSERT_TRUE(facts.lanPings) << facts.lanPings.why().sentence;
  EXPECT_FALSE(facts.lanPings->answers.empty());
}

TEST_F(ReachErrands, PingTheRouterThatTheNetworkNamed) {
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = checks::Addresses{.ipv4Gateway = "127.0.0.1"};
  Facts facts;
  errandOf(Fact::lanPings)
      .run(known, {Clock::now() + std::chrono::seconds(30), cancellation_})(facts);
  ASSERT_TRUE(facts.lanPings) << facts.lanPings.why().sentence;
  EXPECT_EQ(facts.lanPings->target, "127.0.0.1");
  EXPECT_FALSE(facts.lanPings->answers.empty());
}

TEST_F(ReachErrands, WithoutNameServersOfAnAddressPingNothing) {
  std::vector<Errand> errands;
  addReachErrands(errands, "lo", {.pingHost = "no_such..name"});
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = checks::Addresses{};
  Facts facts;
  errands[1].run(known, {Clock::now() + std::chrono::seconds(30), cancellation_})(facts);
  ASSERT_FALSE(facts.wanPings);
  EXPECT_NE(facts.wanPings.why().sentence.find("could not be looked up (malformed name)"),
            std::string::npos)
      << facts.wanPings.why().sentence;
}

TEST_F(ReachErrands, KeepWithTheFactWhySomethingWasNotReached) {
  std::vector<Errand> errands;
  addReachErrands(errands, "lo", {.name = "no_such..name"});
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = checks::Addresses{.dnsServers = std::vector<std::string>()};
  Facts facts;
  for (const std::size_t lookUpAndSite : {2U, 4U}) {
    errands.at(lookUpAndSite).run(known, patient(cancellation_))(facts);
  }
  ASSERT_TRUE(facts.nameResolution);
  EXPECT_EQ(facts.nameResolution->problem, "no name server");
  ASSERT_TRUE(facts.siteReach);
  EXPECT_EQ(facts.siteReach->problem, "name: no name server");
}

TEST_F(ReachErrands, LogNothingFromTheirThreads) {
  std::vector<Errand> errands;
  addReachErrands(errands, "lo", {.name = "no_such..name"});
  Facts known;
  known.link = checks::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = checks::Addresses{.dnsServers = std::vector<std::string>()};
  Facts facts;
  errands.at(2).run(known, patient(cancellation_))(facts);
  ASSERT_TRUE(facts.nameResolution);
  EXPECT_FALSE(facts.nameResolution->resolved);
  EXPECT_TRUE(log_->lines().empty());
}

// A server of names that gives each the addresses 192.168.0.1 (the house's) and 2001:db8::1.
std::vector<std::string> routersAddressesOfBoth(const std::string& question) {
  std::string text = question;
  text[2] = static_cast<char>(0x81);
  text[3] = static_cast<char>(0x80);
  text[7] = 1;
  const bool ofIPv4 = question[question.size() - 3] == 1;
  const std::string data =
      ofIPv4 ? std::string("\xc0\xa8\0\1", 4) : "\x20\1\r\xb8" + std::string(11, '\0') + "\1";
  const std::string type(1, question[question.size() - 3]);
  return {text + "\xc0\x0c" + std::string(1, '\0') + type + std::string("\0\1\0\0\0\x3c\0", 7) +
          std::string(1, static_cast<char>(data.size())) + data};
}

class ReachOfTheInternet : public ReachErrands {
 protected:
  ReachOfTheInternet() { known_.link = checks::Link{.interface = "lo", .ssid = "Home"}; }

  Facts after(Fact fact, checks::Addresses addresses) {
    addresses.dnsServers = std::vector{"127.0.0.1:" + std::to_string(server_.port())};
    known_.addresses = addresses;
    Facts facts;
    errandOf(fact).run(known_, patient(cancellation_))(facts);
    return facts;
  }

  const UdpServer server_{routersAddressesOfBoth};
  Facts known_;
};

TEST_F(ReachOfTheInternet, IsNotPingedWhereTheNameServersGiveAnAddressOfTheHouse) {
  const Facts facts = after(Fact::wanPings, {.ipv4Gateway = "192.168.0.1"});
  ASSERT_FALSE(facts.wanPings);
  EXPECT_NE(facts.wanPings.why().sentence.find("private address 192.168.0.1"), std::string::npos)
      << facts.wanPings.why().sentence;
}

// A server of names that knows none.
std::vector<std::string> noSuchName(const std::string& question) {
  std::string text = question;
  text[2] = static_cast<char>(0x81);
  text[3] = static_cast<char>(0x83);
  return {text};
}

TEST_F(ReachOfTheInternet, LooksUpANameOfTheSystemsOtherServersToo) {
  const UdpServer knowing(routersAddressesOfBoth);
  const UdpServer other(noSuchName);
  const auto lookedUp = [&](const UdpServer& system) {
    const std::string server = "127.0.0.1:" + std::to_string(system.port());
    return *after(Fact::nameResolution, {.systemDnsServers = std::vector{server}}).nameResolution;
  };
  EXPECT_TRUE(lookedUp(knowing).resolved);
  EXPECT_EQ(lookedUp(other).problem, "the system's own name servers (127.0.0.1:" +
                                         std::to_string(other.port()) + "): no such name");
  const int before = server_.questions();
  EXPECT_TRUE(lookedUp(server_).resolved);
  EXPECT_EQ(server_.questions(), before + 2);  // not once more
}

TEST_F(ReachOfTheInternet, AsksTheSystemsServersWhereThoseOfTheLinkAreNotKnown) {
  const UdpServer knowing(routersAddressesOfBoth);
  known_.addresses = checks::Addresses{
      .systemDnsServers = std::vector{"127.0.0.1:" + std::to_string(knowing.port())}};
  Facts facts;
  errandOf(Fact::nameResolution).run(known_, patient(cancellation_))(facts);
  EXPECT_TRUE(facts.nameResolution->resolved);
  EXPECT_EQ(knowing.questions(), 2);
}

TEST_F(ReachOfTheInternet, AsksTheSystemsServersOnceWhereTheLinkHasNone) {
  const UdpServer knowing(routersAddressesOfBoth);
  known_.addresses = checks::Addresses{
      .dnsServers = std::vector<std::string>(),
      .systemDnsServers = std::vector{"127.0.0.1:" + std::to_string(knowing.port())}};
  Facts facts;
  errandOf(Fact::nameResolution).run(known_, patient(cancellation_))(facts);
  EXPECT_TRUE(facts.nameResolution->resolved) << facts.nameResolution->problem;
  EXPECT_EQ(knowing.questions(), 2);
}

TEST_F(ReachOfTheInternet, AsksTheSystemsServersThroughATunnelButNotThroughACable) {
  const UdpServer knowing(routersAddressesOfBoth);
  const auto lookedUp = [&](const checks::OtherInterface& through) {
    known_.addresses = checks::Addresses{
        .systemDnsServers = std::vector{"127.0.0.1:" + std::to_string(knowing.port())},
        .systemDnsThrough = through};
    Facts facts;
    errandOf(Fact::nameResolution).run(known_, patient(cancellation_))(facts);
    return facts.nameResolution;
  };
  EXPECT_EQ(lookedUp({.name = "eth0"}).why().sentence,
            "The network's name servers are not known, and the system asks others through eth0: "
            "end the other connection, and try again.");
  EXPECT_EQ(knowing.questions(), 0);
  EXPECT_TRUE(lookedUp({.name = "tun0", .isTunnel = true})->resolved);
}

TEST_F(ReachOfTheInternet, DoesNotDependOnTheSystemsOtherServers) {
  const UdpServer other(noSuchName);
  const std::string server = "127.0.0.1:" + std::to_string(other.port());
  const Facts facts = after(Fact::wanPings, {.systemDnsServers = std::vector{server}});
  ASSERT_FALSE(facts.wanPings);
  EXPECT_NE(facts.wanPings.why().sentence.find("private address 192.168.0.1"), std::string::npos)
      << facts.wanPings.why().sentence;
  EXPECT_EQ(other.questions(), 0);
}

TEST_F(ReachOfTheInternet, IsPingedByIPv6WhereOnlyThatHasARouter) {
  const Facts facts = after(Fact::wanPings, {.ipv6Gateway = "fe80::1"});
  // Whether it can be pinged here or not.
  EXPECT_EQ(facts.wanPings ? facts.wanPings->target : "2001:db8::1", "2001:db8::1");
  if (!facts.wanPings) {
    EXPECT_EQ(facts.wanPings.why().sentence.find("of the house"), std::string::npos)
        << facts.wanPings.why().sentence;
  }
}

}  // namespace
}  // namespace wifi_profile::machine
