#include <limits>

#include "analysis/checks/CheckFixture.h"

namespace wifi_profile::checks {
namespace {

class ReachChecks : public CheckTest {
 protected:
  using Seconds = std::chrono::duration<double>;

  std::shared_ptr<const PingResultRecord> recordOf(Id id) const {
    const auto answer = ask(id);
    return as<PingResultRecord>(answer->info->objectForKey("PingResult"));
  }
};

TEST_F(ReachChecks, MeasureRoundTripsInMillisecondsAndLossInPercent) {
  facts.lanPings = facts::Pings{.target = "192.0.2.1",
                                .sent = 4,
                                .answers = {Seconds(0.002), Seconds(0.004)},
                                .started = Date{1234.5}};
  EXPECT_THAT(ask(Id::PingLAN), says(true));
  const auto record = recordOf(Id::PingLAN);
  EXPECT_EQ(record->interfaceName->string(), "wlan0");
  EXPECT_EQ(record->count, 4);
  EXPECT_DOUBLE_EQ(record->packetLoss, 50);
  EXPECT_DOUBLE_EQ(record->min, 2);
  EXPECT_DOUBLE_EQ(record->max, 4);
  EXPECT_DOUBLE_EQ(record->avg, 3);
  EXPECT_DOUBLE_EQ(record->stddev, 1);
  EXPECT_DOUBLE_EQ(record->timestamp, 1234.5);
}

TEST_F(ReachChecks, FailWithoutAnAnswer) {
  facts.wanPings = facts::Pings{.target = "192.0.2.1", .sent = 3, .answers = {}, .started = {}};
  EXPECT_THAT(ask(Id::PingWAN), says(false));
}

TEST_F(ReachChecks, PassWithoutTimesWhereTheRouterAnswersOnTheLinkOnly) {
  facts.lanPings = facts::Pings{
      .target = "192.0.2.1", .sent = 3, .answers = {}, .started = {}, .isNeighbour = true};
  EXPECT_THAT(ask(Id::PingLAN), says(true));
  const auto answer = ask(Id::PingLAN);
  ASSERT_TRUE(answer->info);
  EXPECT_TRUE(answer->info->entries().empty());
}

TEST_F(ReachChecks, KnowNothingWhereNothingWasSent) {
  for (const int sent : {0, -1}) {
    facts.wanPings =
        facts::Pings{.target = "", .sent = sent, .answers = {Seconds(1)}, .started = {}};
    EXPECT_THAT(ask(Id::PingWAN), isUnknownFor(Reason::failed));
  }
}

TEST_F(ReachChecks, TakeNoTimeThatCannotBe) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  facts.wanPings = facts::Pings{
      .target = "",
      .sent = 2,
      .answers = {Seconds(kNan), Seconds(-1), Seconds(0.001), Seconds(0.002), Seconds(0.003)},
      .started = {}};
  const auto record = recordOf(Id::PingWAN);
  EXPECT_DOUBLE_EQ(record->packetLoss, 0);
  EXPECT_DOUBLE_EQ(record->avg, 1.5);
  facts.wanPings->answers = {Seconds(kNan)};
  EXPECT_THAT(ask(Id::PingWAN), says(false));
}

TEST_F(ReachChecks, SayWhatWasReached) {
  facts.nameResolution = facts::NameResolution{.name = "a", .resolved = true, .problem = ""};
  facts.siteReach = facts::SiteReach{.reached = true, .problem = ""};
  facts.sitePage = facts::SitePage{.retrieved = true, .problem = ""};
  for (const Id id : {Id::ResolveDNS, Id::ReachOrvane, Id::RetrieveOrvane}) {
    EXPECT_THAT(ask(id), says(true));
  }
  facts.nameResolution->resolved = false;
  facts.siteReach->reached = false;
  facts.sitePage->retrieved = false;
  for (const Id id : {Id::ResolveDNS, Id::ReachOrvane, Id::RetrieveOrvane}) {
    EXPECT_THAT(ask(id), says(false));
  }
}

TEST_F(ReachChecks, SayWhereTheSystemsOwnPacketsGoThroughAnotherInterface) {
  facts.wanPings = facts::Pings{.target = "192.0.2.1", .sent = 1, .answers = {Seconds(0.01)}};
  facts.addresses = facts::Addresses{};
  const auto said = [this] { return problemOf({facts, settings, nullptr}, Id::PingWAN); };
  EXPECT_EQ(said(), "");
  facts.addresses->otherWayOut = "tun0";
  EXPECT_EQ(said(),
            "Other programs reach the Internet through tun0, not through the tested Wi-Fi link.");
  facts.wanPings->answers.clear();
  EXPECT_THAT(said(), ::testing::StartsWith("The ping of the Internet: no echo was answered by"));
  EXPECT_THAT(said(), ::testing::HasSubstr(". Other programs reach"));
}

TEST_F(ReachChecks, SayNothingOfAnotherNetwork) {
  facts.addresses = facts::Addresses{};
  askAbout("Cafe");
  EXPECT_THAT(ask(Id::IPv4Assigned), isUnknownFor(Reason::outsideNetwork));
  askAbout(kName);
  EXPECT_THAT(ask(Id::IPv4Assigned), says(false));
}

TEST_F(ReachChecks, FindAnIpv4AddressThatTheNetworkCanUse) {
  facts.addresses = facts::Addresses{};
  facts.addresses->ipv4 = {"169.254.7.7", "0.0.0.0", "127.0.0.1", "224.0.0.1", "nonsense"};
  EXPECT_THAT(ask(Id::IPv4Assigned), says(false));
  for (const char* address : {"192.168.1.7", "100.64.0.7", "203.0.113.7"}) {
    facts.addresses->ipv4 = {"169.254.7.7", address};
    EXPECT_THAT(ask(Id::IPv4Assigned), says(true)) << address;
  }
}

TEST_F(ReachChecks, FindAnIpv6AddressOfMoreThanTheLink) {
  facts.addresses = facts::Addresses{};
  facts.addresses->ipv6 = {"fe80::1", "::1", "ff02::1", "nonsense"};
  EXPECT_THAT(ask(Id::IPv6Assigned), says(false));
  for (const char* address : {"2001:db8::1", "fd00::1"}) {
    facts.addresses->ipv6 = {"fe80::1", address};
    EXPECT_THAT(ask(Id::IPv6Assigned), says(true)) << address;
  }
}

TEST_F(ReachChecks, DoNotKnowOfAnIpv4AddressInANetworkOfIpv6Only) {
  facts.addresses = facts::Addresses{.ipv6 = {"2001:db8::2", "fe80::2"}, .ipv6Gateway = "fe80::1"};
  EXPECT_THAT(ask(Id::IPv4Assigned), isUnknownFor(Reason::notTold));
  facts.addresses->ipv4 = {"169.254.1.1"};  // an attempt that failed
  EXPECT_THAT(ask(Id::IPv4Assigned), says(false));
  facts.addresses = facts::Addresses{.ipv6 = {"fe80::2"}, .ipv6Gateway = "fe80::1"};
  EXPECT_THAT(ask(Id::IPv4Assigned), says(false));
}

TEST_F(ReachChecks, FindDoubleTranslationByTheRoutersOutsideAddressFirst) {
  facts.routerOutside = facts::RouterOutside{.address = "100.64.1.1", .secondHop = "203.0.113.1"};
  EXPECT_THAT(ask(Id::DetectDoubleNAT), says(true));
  facts.routerOutside->address = "203.0.113.9";
  facts.routerOutside->secondHop = "10.0.0.1";
  EXPECT_THAT(ask(Id::DetectDoubleNAT), says(false));
}

TEST_F(ReachChecks, FindNoDoubleTranslationByTheSecondHopAlone) {
  for (const auto& address : {std::optional<std::string>(), std::optional<std::string>("0.0.0.0"),
                              std::optional<std::string>("nonsense")}) {
    facts.routerOutside = facts::RouterOutside{.address = address, .secondHop = "172.16.0.1"};
    for (const char* hop : {"172.16.0.1", "10.0.0.1", "100.64.0.1", "192.168.0.1"}) {
      facts.routerOutside->secondHop = hop;  // of a provider, or of an office's next router
      EXPECT_THAT(ask(Id::DetectDoubleNAT), isUnknownFor(Reason::notTold)) << hop;
    }
    facts.routerOutside->secondHop = "203.0.113.1";
    EXPECT_THAT(ask(Id::DetectDoubleNAT), says(false));
    facts.routerOutside->secondHop.reset();
    EXPECT_THAT(ask(Id::DetectDoubleNAT), isUnknownFor(Reason::notTold));
  }
}

}  // namespace
}  // namespace wifi_profile::checks
