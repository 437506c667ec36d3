#include <functional>
#include <gtest/gtest.h>
#include <utility>

#include "devices/linux/LinkWatch.h"

namespace wifi_profile::linux {
namespace {

using facts::Fact;
using facts::Facts;
using facts::Link;

constexpr std::chrono::milliseconds kTaskLimit{60'000};
const Error kNotJoined{Reason::notJoined, "Join."};
const Error kLookFailed{Reason::tookTooLong, "Try again."};
const facts::Link kHome{.ssid = "Home", .bssid = "02:00:00:00:00:01"};
const facts::Link kUpstairs{.ssid = "Home", .bssid = "02:00:00:00:00:02"};
const facts::Link kCafe{.ssid = "Cafe", .bssid = "02:00:00:00:00:03"};
constexpr netlink::LinkEvents kLost{.lost = true};
constexpr netlink::LinkEvents kJoined{.joined = true};
constexpr netlink::LinkEvents kBoth{.lost = true, .joined = true};

// The sentence; empty where nothing is gone.
std::string said(const std::optional<facts::Link>& before, const netlink::LinkEvents& events,
                 const Result<facts::Link>& now) {
  const auto change = changeOfLink(before, events, now);
  if (!change) return {};
  EXPECT_EQ(change->why.reason, Reason::linkChanged);
  return change->why.message;
}

TEST(ChangeOfLink, SaysThatTheLinkWasLost) {
  EXPECT_EQ(said(kHome, kLost, kNotJoined),
            "The link to \"Home\" was lost while this was asked: run again when it is stable.");
  EXPECT_EQ(said({}, kLost, kNotJoined),
            "The link was lost while this was asked: run again when it is stable.");
}

TEST(ChangeOfLink, ALinkThatIsBackWasLostAllTheSame) {
  EXPECT_EQ(said(kHome, kBoth, kHome), said(kHome, kLost, kNotJoined));
}

TEST(ChangeOfLink, NamesTheNetworkThatIsJoinedInstead) {
  const std::string sentence =
      "The link to \"Home\" changed to \"Cafe\" while this was asked: run again when it is stable.";
  for (const netlink::LinkEvents& events : {kLost, kJoined, kBoth}) {
    EXPECT_EQ(said(kHome, events, kCafe), sentence);
  }
}

TEST(ChangeOfLink, SaysThatItMovedToAnotherAccessPoint) {
  for (const netlink::LinkEvents& events : {kJoined, kBoth}) {
    EXPECT_EQ(said(kHome, events, kUpstairs),
              "The link to \"Home\" moved to another access point while this was asked: run again "
              "when it is stable.");
  }
}

TEST(ChangeOfLink, SaysThatTheChannelChanged) {
  EXPECT_EQ(said(kHome, {.changedChannel = true}, kHome),
            "The link to \"Home\" changed its channel while this was asked: run again when it is "
            "stable.");
}

TEST(ChangeOfLink, IsNoneWhereTheLinkIsWhatItWas) {
  EXPECT_EQ(said(kHome, {}, kHome), "");
  EXPECT_EQ(said(kHome, kJoined, kHome), "");
}

TEST(ChangeOfLink, WithinANetworkTakesOnlyWhatTheRadioGave) {
  for (const auto& change : {changeOfLink(kHome, kBoth, kUpstairs),
                             changeOfLink(kHome, {.changedChannel = true}, kHome)}) {
    EXPECT_EQ(change->gone, (checks::FactSet{facts::Fact::link, facts::Fact::surveys}));
  }
}

TEST(ChangeOfLink, ToAnotherNetworkOrNoneTakesEverythingOfTheLinkButTheScan) {
  for (const auto& change :
       {changeOfLink(kHome, kBoth, kCafe), changeOfLink(kHome, kLost, kNotJoined)}) {
    for (const facts::Fact fact :
         {facts::Fact::link, facts::Fact::surveys, facts::Fact::addresses, facts::Fact::lanPings}) {
      EXPECT_TRUE(change->gone.holds(fact));
    }
    EXPECT_FALSE(
        change->gone.meets({facts::Fact::scan, facts::Fact::radio, facts::Fact::savedNetworks}));
  }
}

TEST(ChangeOfLink, OfMissedEventsIsALossOnlyWhereTheLinkIsGoneNow) {
  constexpr netlink::LinkEvents kMissed{.missed = true};
  EXPECT_EQ(said(kHome, kMissed, kHome), "");
  EXPECT_EQ(said(kHome, kMissed, kNotJoined), said(kHome, kLost, kNotJoined));
  EXPECT_EQ(said(kHome, kMissed, kCafe), said(kHome, kLost, kCafe));
  EXPECT_EQ(said(kHome, kMissed, kUpstairs), said(kHome, kJoined, kUpstairs));
  EXPECT_EQ(said(kHome, kMissed, kLookFailed), "");
}

class LinkWatchOfEvents : public testing::Test {
 protected:
  void SetUp() override {
    watch_.begin(deadline());
    watch_.setLink(kHome);
  }

  Deadline deadline(std::chrono::milliseconds time = kTaskLimit) {
    return Deadline::in(time, cancellation_.get_token());
  }
  // What is gone when this happened; empty: nothing.
  checks::FactSet goneAfter(const netlink::LinkEvents& events, const Deadline& deadline) {
    events_ = events;
    const auto change = watch_.change(deadline);
    return change ? change->gone : checks::FactSet{};
  }

  const checks::FactSet allGone_ = changeOfLink(kHome, kLost, kNotJoined)->gone;
  const checks::FactSet radioGone_ = changeOfLink(kHome, kBoth, kUpstairs)->gone;
  std::stop_source cancellation_;
  netlink::LinkEvents events_;
  std::function<Result<facts::Link>(const Deadline&)> now_ = [](const Deadline&) { return kHome; };
  LinkWatch watch_{{.watch = [](const Deadline&) { return Status(); },
                    .takeEvents = [this] { return std::exchange(events_, {}); },
                    .now = [this](const Deadline& deadline) { return now_(deadline); }}};
};

TEST_F(LinkWatchOfEvents, LooksAtTheLinkAfterTheDeadlineToo) {
  now_ = [](const Deadline& deadline) -> Result<facts::Link> {
    if (deadline.isOver()) return kLookFailed;
    return kUpstairs;
  };
  EXPECT_EQ(goneAfter(kBoth, deadline(std::chrono::milliseconds(-1))), radioGone_);
}

TEST_F(LinkWatchOfEvents, KeepsTheEventsUntilALookHasAnswered) {
  now_ = [](const Deadline&) { return kLookFailed; };
  EXPECT_EQ(goneAfter(kJoined, deadline()), checks::FactSet{});
  now_ = [](const Deadline&) { return kUpstairs; };
  EXPECT_EQ(goneAfter({}, deadline()), radioGone_);
}

TEST_F(LinkWatchOfEvents, ALossIsARoamWhereAnotherAccessPointIsJoinedSoonAfter) {
  int looks = 0;
  now_ = [&](const Deadline&) -> Result<facts::Link> {
    if (++looks < 3) return kNotJoined;
    return kUpstairs;
  };
  EXPECT_EQ(goneAfter(kLost, deadline()), radioGone_);
}

TEST_F(LinkWatchOfEvents, ALossMayStillBeARoamAfterTheDeadlineOfOneTask) {
  now_ = [](const Deadline&) { return kNotJoined; };
  EXPECT_EQ(goneAfter(kLost, deadline(std::chrono::milliseconds(-1))), allGone_);
  now_ = [](const Deadline&) { return kUpstairs; };
  EXPECT_EQ(goneAfter({}, deadline()), radioGone_);
}

TEST_F(LinkWatchOfEvents, ALossThatWasWaitedForStaysOne) {
  now_ = [](const Deadline&) { return kNotJoined; };
  EXPECT_EQ(goneAfter(kLost, deadline()), allGone_);
  now_ = [](const Deadline&) { return kHome; };
  EXPECT_EQ(goneAfter({}, deadline()), allGone_);
}

TEST_F(LinkWatchOfEvents, HoldsNothingUpWhileItLooks) {
  now_ = [this](const Deadline&) {
    watch_.setLink(kHome);  // would wait for ever
    return kUpstairs;
  };
  EXPECT_EQ(goneAfter(kJoined, deadline()), radioGone_);
}

TEST_F(LinkWatchOfEvents, EventsThatComeWhileItLooksAreLookedAtAsWell) {
  int looks = 0;
  now_ = [&](const Deadline&) {
    if (++looks > 1) return kCafe;
    EXPECT_EQ(goneAfter(kJoined, deadline()), allGone_);
    return kUpstairs;
  };
  EXPECT_EQ(goneAfter(kJoined, deadline()), allGone_);
}

TEST_F(LinkWatchOfEvents, BeginsAgainWhereItCouldNot) {
  netlink::LinkEvents events = kJoined;
  Status problem = kLookFailed;
  LinkWatch watch{{.watch = [&](const Deadline&) { return problem; },
                   .takeEvents = [&] { return events; },
                   .now = [](const Deadline&) { return kCafe; }}};
  watch.begin(deadline());
  EXPECT_FALSE(watch.change(deadline()));
  problem = {};
  watch.begin(deadline());
  EXPECT_TRUE(watch.change(deadline()));
}

const LinkChange kAllGone{changeOfLink(kHome, kLost, kNotJoined)->gone,
                          {Reason::linkChanged, "The link was lost."}};
const LinkChange kRadioGone{changeOfLink(kHome, kBoth, kUpstairs)->gone,
                            {Reason::linkChanged, "The link moved."}};

class BoundToLink : public testing::Test {
 protected:
  // What an task gives that is bound to a link whose changes are told as listed, one by one.
  facts::Facts factsOf(checks::FactSet gives, std::vector<std::optional<LinkChange>> changes) {
    FactTask task{.name = "task",
                  .gives = gives,
                  .after = {},
                  .limit = kTaskLimit,
                  .run = [this](const facts::Facts&, const Deadline&) -> Found {
                    ++runs_;
                    return [](facts::Facts& facts) {
                      facts.link = facts::Link{.ssid = "Home"};
                      facts.radio = facts::Radio{};
                      facts.scan = facts::Scan{};
                      facts.lanPings = facts::Pings{.target = "192.0.2.1"};
                    };
                  }};
    std::size_t asked = 0;
    const FactTask bound = boundToLink(task, [&](const Deadline&) { return changes.at(asked++); });
    facts::Facts facts;
    bound.run({}, Deadline::in(kTaskLimit, cancellation_.get_token()))(facts);
    return facts;
  }

  std::stop_source cancellation_;
  int runs_ = 0;
};

TEST_F(BoundToLink, FactsOfALinkThatStaysAreKnown) {
  EXPECT_TRUE(factsOf({facts::Fact::lanPings}, {std::nullopt, std::nullopt}).lanPings);
}

TEST_F(BoundToLink, FactsOfALinkThatChangedMeanwhileAreNotKnown) {
  const facts::Facts facts = factsOf({facts::Fact::lanPings}, {std::nullopt, kAllGone});
  ASSERT_FALSE(facts.lanPings);
  EXPECT_EQ(facts.lanPings.error(), kAllGone.why);
}

TEST_F(BoundToLink, NothingIsSentThroughALinkThatChanged) {
  const facts::Facts facts = factsOf({facts::Fact::lanPings}, {kAllGone, kAllGone});
  EXPECT_EQ(runs_, 0);
  ASSERT_FALSE(facts.lanPings);
  EXPECT_EQ(facts.lanPings.error(), kAllGone.why);
}

TEST_F(BoundToLink, WhatIsReachedStaysKnownWhenTheLinkMovesWithinTheNetwork) {
  EXPECT_TRUE(factsOf({facts::Fact::lanPings}, {std::nullopt, kRadioGone}).lanPings);
  EXPECT_TRUE(factsOf({facts::Fact::lanPings}, {kRadioGone, kRadioGone}).lanPings);
  EXPECT_EQ(runs_, 2);
}

TEST_F(BoundToLink, TheLinkIsNotKnownWhenItMovesMeanwhile) {
  const facts::Facts facts =
      factsOf({facts::Fact::link, facts::Fact::radio}, {std::nullopt, kRadioGone});
  ASSERT_FALSE(facts.link);
  EXPECT_EQ(facts.link.error(), kRadioGone.why);
  EXPECT_TRUE(facts.radio);
}

TEST_F(BoundToLink, FactsOfTheRadioAndTheAirStayKnown) {
  const facts::Facts facts =
      factsOf({facts::Fact::link, facts::Fact::radio, facts::Fact::scan}, {kAllGone, kAllGone});
  EXPECT_FALSE(facts.link);
  EXPECT_TRUE(facts.radio);
  EXPECT_TRUE(facts.scan);
}

}  // namespace
}  // namespace wifi_profile::linux
