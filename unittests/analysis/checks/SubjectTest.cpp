#include "analysis/checks/CheckFixture.h"
#include "analysis/checks/Subject.h"

namespace wifi_profile::checks {
namespace {

class SubjectTest : public CheckTest {
 protected:
  Result<Subject> subject() const { return subjectOf({facts, settings, networkName}); }
};

TEST_F(SubjectTest, IsTheJoinedAccessPointWithoutAName) {
  add(accessPoint("02:10:20:30:40:99", kName, -30, 40));
  const auto found = subject();
  ASSERT_TRUE(found);
  EXPECT_EQ(found->link, &*facts.link);
  EXPECT_EQ(found->heard, &own());
}

TEST_F(SubjectTest, IsTheJoinedAccessPointForTheJoinedName) {
  add(accessPoint("02:10:20:30:40:99", kName, -30, 40));
  askAbout(kName);
  EXPECT_EQ(subject()->heard, &own());
}

TEST_F(SubjectTest, IsTheStrongestAccessPointOfAnotherName) {
  add(accessPoint("02:00:00:00:00:01", "Cafe", -80, 1));
  add(accessPoint("02:00:00:00:00:02", "Cafe", -50, 6));
  add(accessPoint("02:00:00:00:00:03", "Cafe", 0, 11)).signal.reset();
  add(accessPoint("02:00:00:00:00:04", "cafe", -20, 11));
  askAbout("Cafe");
  const auto found = subject();
  ASSERT_TRUE(found);
  EXPECT_EQ(found->link, nullptr);
  EXPECT_EQ(found->heard->bssid, "02:00:00:00:00:02");
}

TEST_F(SubjectTest, OfAnotherNameNeedsNoJoinedNetwork) {
  facts.link = Error{Reason::notJoined, ""};
  askAbout(kName);
  ASSERT_TRUE(subject());
  EXPECT_EQ(subject()->link, nullptr);
  EXPECT_EQ(subject()->heard, &own());
}

TEST_F(SubjectTest, OfANameIsUnknownWhereNobodyKnowsWhatIsJoined) {
  facts.link = Error{Reason::tookTooLong, "The kernel did not answer."};
  askAbout(kName);
  EXPECT_EQ(subject().error(), facts.link.error());
  EXPECT_EQ(whyNotAMember({facts, settings, networkName}), facts.link.error());
}

TEST_F(SubjectTest, IsNotInRangeWhenNobodyHasTheName) {
  askAbout("Elsewhere");
  EXPECT_EQ(subject().error().reason, Reason::notInRange);
}

TEST_F(SubjectTest, WithoutANameNeedsAJoinedNetwork) {
  facts.link = Error{Reason::radioOff, "Switch Wi-Fi on."};
  EXPECT_EQ(subject().error(), facts.link.error());
}

TEST_F(SubjectTest, ThatIsJoinedMayBeMissingInTheScan) {
  facts.scan->accessPoints.clear();
  EXPECT_EQ(subject()->heard, nullptr);
  EXPECT_EQ(subject()->notHeard.reason, Reason::notInRange);
  facts.scan = Error{Reason::tookTooLong, ""};
  EXPECT_EQ(subject()->notHeard.reason, Reason::tookTooLong);
}

TEST_F(SubjectTest, IsOnTheLinksChannelWhereTheScanIsOld) {
  facts.link->frequency = 5500;
  const auto channel = channelOf(*subject());
  ASSERT_TRUE(channel);
  EXPECT_EQ(channel->primary, 100);
  EXPECT_FALSE(channel->extent);
}

TEST_F(SubjectTest, IsOnTheHeardChannelWhereTheLinkDoesNotSay) {
  for (const auto frequency : {std::optional<int>(), std::optional<int>(5001)}) {
    facts.link->frequency = frequency;
    EXPECT_EQ(channelOf(*subject()), own().channel);
  }
}

}  // namespace
}  // namespace wifi_profile::checks
