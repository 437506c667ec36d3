// What goes through the interface, where nothing can: no link, no address, no router.

#include <algorithm>
#include <gtest/gtest.h>

#include "devices/linux/Lines.h"
#include "devices/linux/ProbeTasks.h"
#include "devices/linux/probes/LocalServers.h"

namespace wifi_profile::linux {
namespace {

using facts::Fact;
using facts::Facts;

constexpr facts::Fact kReachFacts[]{facts::Fact::lanPings,       facts::Fact::wanPings,
                                    facts::Fact::nameResolution, facts::Fact::portalProbe,
                                    facts::Fact::siteReach,      facts::Fact::sitePage,
                                    facts::Fact::routerOutside};

// Why a fact of this kind is not known; nothing: it is.
std::optional<Error> whyNot(const facts::Facts& facts, facts::Fact fact) {
  const auto why = [](const auto& known) {
    return known ? std::nullopt : std::optional<Error>(known.error());
  };
  switch (fact) {
    case facts::Fact::lanPings:
      return why(facts.lanPings);
    case facts::Fact::wanPings:
      return why(facts.wanPings);
    case facts::Fact::nameResolution:
      return why(facts.nameResolution);
    case facts::Fact::portalProbe:
      return why(facts.portalProbe);
    case facts::Fact::siteReach:
      return why(facts.siteReach);
    case facts::Fact::sitePage:
      return why(facts.sitePage);
    default:
      return why(facts.routerOutside);
  }
}

class ProbeTasks : public testing::Test {
 protected:
  ProbeTasks() { addProbeTasks(tasks_, "lo", {}); }

  const FactTask& taskOf(facts::Fact fact) const {
    return *std::find_if(tasks_.begin(), tasks_.end(),
                         [fact](const FactTask& task) { return task.gives.holds(fact); });
  }
  // Its deadline is over, so an task that tried to send something would find that out only.
  Error whyNotAfter(facts::Fact fact, const facts::Facts& known) const {
    facts::Facts facts;
    taskOf(fact).run(known, {Clock::now(), cancellation_.get_token()})(facts);
    return whyNot(facts, fact).value_or(Error{Reason::failed, "It is known."});
  }

  std::shared_ptr<Lines> log_ = std::make_shared<Lines>();
  const InstalledPlatform platform_{{.log = log_.get()}};
  std::vector<FactTask> tasks_;
  std::stop_source cancellation_;
};

TEST_F(ProbeTasks, GiveEachFactOnce) {
  EXPECT_EQ(tasks_.size(), std::size(kReachFacts));
  for (const facts::Fact fact : kReachFacts) {
    EXPECT_EQ(std::count_if(tasks_.begin(), tasks_.end(),
                            [fact](const FactTask& task) { return task.gives.holds(fact); }),
              1);
  }
}

TEST_F(ProbeTasks, BeginAfterTheScanAndEndWithin15SecondsOfIt) {
  for (const FactTask& task : tasks_) {
    for (const facts::Fact fact :
         {facts::Fact::link, facts::Fact::addresses, facts::Fact::activeProfile}) {
      EXPECT_TRUE(task.after.holds(fact)) << task.name;
    }
    // What only asks the router need not wait for the radio.
    EXPECT_NE(task.after.holds(facts::Fact::scan), task.gives.holds(facts::Fact::routerOutside))
        << task.name;
    EXPECT_FALSE(task.after.meets({facts::Fact::lanPings, facts::Fact::nameResolution}))
        << task.name;
    EXPECT_LE(task.limit, std::chrono::seconds(15)) << task.name;
  }
}

TEST_F(ProbeTasks, WithoutALinkSayWhyThereIsNone) {
  facts::Facts known;
  known.link = Error{Reason::notJoined, "There is no link."};
  known.addresses = facts::Addresses{.ipv4Gateway = "127.0.0.1"};
  for (const facts::Fact fact : kReachFacts) {
    EXPECT_EQ(whyNotAfter(fact, known), known.link.error()) << taskOf(fact).name;
  }
}

TEST_F(ProbeTasks, WithoutAddressesSayWhyThereAreNone) {
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = Error{Reason::failed, "There are no addresses."};
  for (const facts::Fact fact : kReachFacts) {
    EXPECT_EQ(whyNotAfter(fact, known), known.addresses.error()) << taskOf(fact).name;
  }
}

TEST_F(ProbeTasks, WithoutARouterSayThatTheNetworkNamedNone) {
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = facts::Addresses{};
  for (const facts::Fact fact : {facts::Fact::lanPings, facts::Fact::routerOutside}) {
    const Error why = whyNotAfter(fact, known);
    EXPECT_EQ(why.reason, Reason::notTold);
    EXPECT_NE(why.message.find("named no router"), std::string::npos) << why.message;
  }
}

TEST_F(ProbeTasks, WithARouterOfIpv6OnlySayThatThereIsNothingToTranslate) {
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = facts::Addresses{.ipv6Gateway = "fe80::1"};
  const Error why = whyNotAfter(facts::Fact::routerOutside, known);
  EXPECT_EQ(why.reason, Reason::notTold);
  EXPECT_EQ(why.message.find("named no router"), std::string::npos) << why.message;
}

TEST_F(ProbeTasks, SendNothingWhereOnlyAnotherInterfaceHasADefaultRoute) {
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = facts::Addresses{.otherWayOut = "tun0"};
  for (const facts::Fact fact : kReachFacts) {
    EXPECT_EQ(whyNotAfter(fact, known).message,
              "The default route goes through tun0, and none through lo: end the other "
              "connection, and try again.");
  }
}

TEST_F(ProbeTasks, GoThroughTheBondOrBridgeThatHasTheAddresses) {
  std::vector<FactTask> tasks;
  addProbeTasks(tasks, "no-such0", {});
  facts::Facts known;
  known.link = facts::Link{.interface = "no-such0", .ssid = "Home"};
  known.addresses = facts::Addresses{.ipv4Gateway = "127.0.0.1", .carrier = "lo"};
  facts::Facts facts;
  tasks.front().run(known, probes::longDeadline(cancellation_.get_token()))(facts);
  ASSERT_TRUE(facts.lanPings) << facts.lanPings.error().message;
  EXPECT_FALSE(facts.lanPings->answers.empty());
}

TEST_F(ProbeTasks, PingTheRouterThatTheNetworkNamed) {
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = facts::Addresses{.ipv4Gateway = "127.0.0.1"};
  facts::Facts facts;
  taskOf(facts::Fact::lanPings)
      .run(known, Deadline::in(std::chrono::seconds(30), cancellation_.get_token()))(facts);
  ASSERT_TRUE(facts.lanPings) << facts.lanPings.error().message;
  EXPECT_EQ(facts.lanPings->target, "127.0.0.1");
  EXPECT_FALSE(facts.lanPings->answers.empty());
}

TEST_F(ProbeTasks, WithoutNameServersOfAnAddressPingNothing) {
  std::vector<FactTask> tasks;
  addProbeTasks(tasks, "lo", {.pingHost = "no_such..name"});
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = facts::Addresses{};
  facts::Facts facts;
  tasks[1].run(known, Deadline::in(std::chrono::seconds(30), cancellation_.get_token()))(facts);
  ASSERT_FALSE(facts.wanPings);
  EXPECT_NE(facts.wanPings.error().message.find("could not be looked up (malformed name)"),
            std::string::npos)
      << facts.wanPings.error().message;
}

TEST_F(ProbeTasks, KeepWithTheFactWhySomethingWasNotReached) {
  std::vector<FactTask> tasks;
  addProbeTasks(tasks, "lo", {.name = "no_such..name"});
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = facts::Addresses{.dnsServers = std::vector<std::string>()};
  facts::Facts facts;
  for (const std::size_t lookUpAndSite : {2U, 4U}) {
    tasks.at(lookUpAndSite).run(known, probes::longDeadline(cancellation_.get_token()))(facts);
  }
  ASSERT_TRUE(facts.nameResolution);
  EXPECT_EQ(facts.nameResolution->problem, "no name server");
  ASSERT_TRUE(facts.siteReach);
  EXPECT_EQ(facts.siteReach->problem, "name: no name server");
}

TEST_F(ProbeTasks, LogNothingFromTheirThreads) {
  std::vector<FactTask> tasks;
  addProbeTasks(tasks, "lo", {.name = "no_such..name"});
  facts::Facts known;
  known.link = facts::Link{.interface = "lo", .ssid = "Home"};
  known.addresses = facts::Addresses{.dnsServers = std::vector<std::string>()};
  facts::Facts facts;
  tasks.at(2).run(known, probes::longDeadline(cancellation_.get_token()))(facts);
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

class ReachOfTheInternet : public ProbeTasks {
 protected:
  ReachOfTheInternet() { known_.link = facts::Link{.interface = "lo", .ssid = "Home"}; }

  facts::Facts after(facts::Fact fact, facts::Addresses addresses,
                     Deadline deadline = probes::longDeadline()) {
    addresses.dnsServers = std::vector{"127.0.0.1:" + std::to_string(server_.port())};
    known_.addresses = addresses;
    facts::Facts facts;
    taskOf(fact).run(known_, deadline)(facts);
    return facts;
  }

  const probes::UdpServer server_{routersAddressesOfBoth};
  facts::Facts known_;
};

TEST_F(ReachOfTheInternet, IsNotPingedWhereTheNameServersGiveAnAddressOfTheHouse) {
  const facts::Facts facts = after(facts::Fact::wanPings, {.ipv4Gateway = "192.168.0.1"});
  ASSERT_FALSE(facts.wanPings);
  EXPECT_NE(facts.wanPings.error().message.find("private address 192.168.0.1"), std::string::npos)
      << facts.wanPings.error().message;
}

// A server of names that knows none.
std::vector<std::string> noSuchName(const std::string& question) {
  std::string text = question;
  text[2] = static_cast<char>(0x81);
  text[3] = static_cast<char>(0x83);
  return {text};
}

TEST_F(ReachOfTheInternet, LooksUpANameOfTheSystemsOtherServersToo) {
  const probes::UdpServer knowing(routersAddressesOfBoth);
  const probes::UdpServer other(noSuchName);
  const auto lookedUp = [&](const probes::UdpServer& system) {
    const std::string server = "127.0.0.1:" + std::to_string(system.port());
    return *after(facts::Fact::nameResolution, {.systemDnsServers = std::vector{server}})
                .nameResolution;
  };
  EXPECT_TRUE(lookedUp(knowing).resolved);
  EXPECT_EQ(lookedUp(other).problem, "the system's own name servers (127.0.0.1:" +
                                         std::to_string(other.port()) + "): no such name");
  const int before = server_.questions();
  EXPECT_TRUE(lookedUp(server_).resolved);
  EXPECT_EQ(server_.questions(), before + 2);  // not once more
}

TEST_F(ReachOfTheInternet, AsksTheSystemsServersWhereThoseOfTheLinkAreNotKnown) {
  const probes::UdpServer knowing(routersAddressesOfBoth);
  known_.addresses = facts::Addresses{
      .systemDnsServers = std::vector{"127.0.0.1:" + std::to_string(knowing.port())}};
  facts::Facts facts;
  taskOf(facts::Fact::nameResolution)
      .run(known_, probes::longDeadline(cancellation_.get_token()))(facts);
  EXPECT_TRUE(facts.nameResolution->resolved);
  EXPECT_EQ(knowing.questions(), 2);
}

TEST_F(ReachOfTheInternet, AsksTheSystemsServersOnceWhereTheLinkHasNone) {
  const probes::UdpServer knowing(routersAddressesOfBoth);
  known_.addresses = facts::Addresses{
      .dnsServers = std::vector<std::string>(),
      .systemDnsServers = std::vector{"127.0.0.1:" + std::to_string(knowing.port())}};
  facts::Facts facts;
  taskOf(facts::Fact::nameResolution)
      .run(known_, probes::longDeadline(cancellation_.get_token()))(facts);
  EXPECT_TRUE(facts.nameResolution->resolved) << facts.nameResolution->problem;
  EXPECT_EQ(knowing.questions(), 2);
}

TEST_F(ReachOfTheInternet, AsksTheSystemsServersThroughATunnelButNotThroughACable) {
  const probes::UdpServer knowing(routersAddressesOfBoth);
  const auto lookedUp = [&](const facts::OtherInterface& through) {
    known_.addresses = facts::Addresses{
        .systemDnsServers = std::vector{"127.0.0.1:" + std::to_string(knowing.port())},
        .systemDnsThrough = through};
    facts::Facts facts;
    taskOf(facts::Fact::nameResolution)
        .run(known_, probes::longDeadline(cancellation_.get_token()))(facts);
    return facts.nameResolution;
  };
  EXPECT_EQ(lookedUp({.name = "eth0"}).error().message,
            "The network's name servers are not known, and the system asks others through eth0: "
            "end the other connection, and try again.");
  EXPECT_EQ(knowing.questions(), 0);
  EXPECT_TRUE(lookedUp({.name = "tun0", .isTunnel = true})->resolved);
}

TEST_F(ReachOfTheInternet, DoesNotDependOnTheSystemsOtherServers) {
  const probes::UdpServer other(noSuchName);
  const std::string server = "127.0.0.1:" + std::to_string(other.port());
  const facts::Facts facts =
      after(facts::Fact::wanPings, {.systemDnsServers = std::vector{server}});
  ASSERT_FALSE(facts.wanPings);
  EXPECT_NE(facts.wanPings.error().message.find("private address 192.168.0.1"), std::string::npos)
      << facts.wanPings.error().message;
  EXPECT_EQ(other.questions(), 0);
}

TEST_F(ReachOfTheInternet, IsPingedByIPv6WhereOnlyThatHasARouter) {
  const facts::Facts facts = after(facts::Fact::wanPings, {.ipv6Gateway = "fe80::1"},
                                   Deadline::in(std::chrono::milliseconds(300)));
  // Whether it can be pinged here or not.
  EXPECT_EQ(facts.wanPings ? facts.wanPings->target : "2001:db8::1", "2001:db8::1");
  if (!facts.wanPings) {
    EXPECT_EQ(facts.wanPings.error().message.find("of the house"), std::string::npos)
        << facts.wanPings.error().message;
  }
}

}  // namespace
}  // namespace wifi_profile::linux
