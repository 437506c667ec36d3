#include <gtest/gtest.h>

#include "devices/linux/LinkWatch.h"

namespace wifi_profile::machine {
namespace {

using checks::Fact;
using checks::Facts;
using checks::Link;
using checks::Reason;
using checks::Unknown;

constexpr std::chrono::milliseconds kTaskLimit{60'000};
const Unknown kLost{Reason::linkChanged, "The link was lost."};

TEST(LinkChanged, SaysThatTheLinkWasLost) {
  const Unknown none{Reason::notJoined, "Join."};
  EXPECT_EQ(linkChanged("Home", none).reason, Reason::linkChanged);
  EXPECT_EQ(linkChanged("Home", none).sentence,
            "The link to \"Home\" was lost while this was asked: run again when it is stable.");
  EXPECT_EQ(linkChanged("", none).sentence,
            "The link was lost while this was asked: run again when it is stable.");
}

TEST(LinkChanged, ALinkThatIsBackWasLostAllTheSame) {
  EXPECT_EQ(linkChanged("Home", Link{.ssid = "Home"}).sentence,
            "The link to \"Home\" was lost while this was asked: run again when it is stable.");
}

TEST(LinkChanged, NamesTheNetworkThatIsJoinedInstead) {
  EXPECT_EQ(linkChanged("Home", Link{.ssid = "Cafe"}).sentence,
            "The link to \"Home\" changed to \"Cafe\" while this was asked: run again when it is "
            "stable.");
}

class BoundToLink : public testing::Test {
 protected:
  // What an errand gives that is bound to a link whose changes are told as listed, one by one.
  Facts factsOf(checks::FactSet gives, std::vector<std::optional<Unknown>> changes) {
    Errand errand{.name = "errand",
                  .gives = gives,
                  .after = {},
                  .limit = kTaskLimit,
                  .run = [this](const Facts&, const Patience&) -> Found {
                    ++runs_;
                    return [](Facts& facts) {
                      facts.link = Link{.ssid = "Home"};
                      facts.radio = checks::Radio{};
                      facts.scan = checks::Scan{};
                      facts.lanPings = checks::Pings{.target = "192.0.2.1"};
                    };
                  }};
    std::size_t asked = 0;
    const Errand bound = boundToLink(errand, [&](const Patience&) { return changes.at(asked++); });
    Facts facts;
    bound.run({}, {Clock::now() + kTaskLimit, cancellation_})(facts);
    return facts;
  }

  Cancellation cancellation_;
  int runs_ = 0;
};

TEST_F(BoundToLink, FactsOfALinkThatStaysAreKnown) {
  EXPECT_TRUE(factsOf({Fact::lanPings}, {std::nullopt, std::nullopt}).lanPings);
}

TEST_F(BoundToLink, FactsOfALinkThatChangedMeanwhileAreNotKnown) {
  const Facts facts = factsOf({Fact::lanPings}, {std::nullopt, kLost});
  ASSERT_FALSE(facts.lanPings);
  EXPECT_EQ(facts.lanPings.why(), kLost);
}

TEST_F(BoundToLink, NothingIsSentThroughALinkThatChanged) {
  const Facts facts = factsOf({Fact::lanPings}, {kLost});
  EXPECT_EQ(runs_, 0);
  ASSERT_FALSE(facts.lanPings);
  EXPECT_EQ(facts.lanPings.why(), kLost);
}

TEST_F(BoundToLink, FactsOfTheRadioAndTheAirStayKnown) {
  const Facts facts = factsOf({Fact::link, Fact::radio, Fact::scan}, {kLost});
  EXPECT_FALSE(facts.link);
  EXPECT_TRUE(facts.radio);
  EXPECT_TRUE(facts.scan);
}

}  // namespace
}  // namespace wifi_profile::machine
