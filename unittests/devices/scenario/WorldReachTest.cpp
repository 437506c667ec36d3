#include <gtest/gtest.h>

#include "WorldTesting.h"

namespace wifi_profile::scenario {
namespace {

using namespace std::chrono_literals;

TEST(WorldReach, ReadsPings) {
  const auto all = facts(R"({"lanPings":{"target":"192.168.1.1","sent":3,"answers":[1.5,2],
      "started":"2001-01-01T00:00:10Z"},"wanPings":{"target":"192.0.2.1","byConnecting":true,
      "sent":1,"answers":[],"started":"2001-01-01"}})");
  EXPECT_EQ(*all.lanPings,
            (facts::Pings{.target = "192.168.1.1",
                          .byConnecting = false,
                          .sent = 3,
                          .answers = {std::chrono::duration<double, std::milli>(1.5), 2ms},
                          .started = Date{10}}));
  EXPECT_TRUE(all.wanPings->byConnecting);
  EXPECT_TRUE(all.wanPings->answers.empty());
  const std::string tooMany = R"({"target":"a","sent":1,"answers":[1,2],"started":"2001-01-01"})";
  EXPECT_EQ(faultIn(R"({"lanPings":)" + tooMany + "}"),
            "/world/lanPings/answers: found 2 answers, expected no more than were sent");
  const std::string noDate = R"({"target":"a","sent":1,"answers":[],"started":null})";
  EXPECT_EQ(faultIn(R"({"wanPings":)" + noDate + "}"),
            "/world/wanPings/started: found null, expected an ISO 8601 date such as "
            "\"2026-03-01T18:30:00Z\"");
  EXPECT_NE(faultIn(R"({"lanPings":{}})"), "");
}

TEST(WorldReach, ReadsWhatIsReached) {
  using Answer = facts::PortalProbe::Answer;
  const auto all = facts(R"({"nameResolution":{"name":"example.org","resolved":true},
      "portalProbe":{"answer":"portal","detail":"302 to example.net"},
      "siteReach":{"reached":false,"problem":"refused"},"sitePage":{"retrieved":true},
      "routerOutside":{"address":"100.64.0.7","secondHop":"192.168.0.1"}})");
  EXPECT_EQ(*all.nameResolution, (facts::NameResolution{"example.org", true, ""}));
  EXPECT_EQ(*all.portalProbe, (facts::PortalProbe{Answer::portal, "302 to example.net"}));
  EXPECT_EQ(*all.siteReach, (facts::SiteReach{false, "refused"}));
  EXPECT_EQ(*all.sitePage, (facts::SitePage{true, ""}));
  EXPECT_EQ(*all.routerOutside, (facts::RouterOutside{"100.64.0.7", "192.168.0.1"}));
  EXPECT_EQ(facts(R"({"portalProbe":{"answer":"open"}})").portalProbe->answer, Answer::open);
  EXPECT_EQ(facts(R"({"portalProbe":{"answer":"noAnswer"}})").portalProbe->answer,
            Answer::noAnswer);
  for (const char* fact : {"nameResolution", "portalProbe", "siteReach", "sitePage"}) {
    EXPECT_EQ(faultIn("{\"" + std::string(fact) + "\":{}}").find("/world/" + std::string(fact)), 0U)
        << fact;
  }
  EXPECT_NE(faultIn(R"({"routerOutside":{"address":"fe80::1"}})"), "");
}

}  // namespace
}  // namespace wifi_profile::scenario
