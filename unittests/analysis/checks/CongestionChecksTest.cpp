#include "analysis/checks/ChannelLoad.h"
#include "analysis/checks/CheckFixture.h"

namespace wifi_profile::checks {
namespace {

using ieee80211::Band;
using std::chrono::milliseconds;
using testing::IsNull;

class CongestionChecks : public CheckTest {
 protected:
  CongestionChecks() {
    facts::Radio radio;
    for (const int frequency : {2412, 2417, 2437, 2462, 5180, 5200, 5745, 5765}) {
      radio.channels.push_back({.frequency = frequency});
    }
    for (const int frequency : {5260, 5280}) {
      radio.channels.push_back({.frequency = frequency, .radarDetection = true});
    }
    radio.channels.push_back({.frequency = 5825, .disabled = true});
    facts.radio = radio;
  }

  // Boxes of others, which differ in their middle octets.
  void addBoxes(int count, int channel, ieee80211::Band band = ieee80211::Band::ghz5,
                int signal = -60) {
    for (int i = 0; i < count; ++i) {
      const std::string number = std::to_string(10 + boxes_++);
      add(accessPoint("02:00:00:" + number + ":00:00", "Neighbour " + number, signal, channel,
                      band));
    }
  }
  void survey(int frequency, int active, int busy, std::optional<int> transmit,
              bool inUse = false) {
    facts::ChannelSurvey one;
    one.frequency = frequency;
    one.inUse = inUse;
    one.active = milliseconds(active);
    one.busy = milliseconds(busy);
    if (transmit) one.transmit = milliseconds(*transmit);
    if (!facts.surveys) facts.surveys = std::vector<facts::ChannelSurvey>();
    facts.surveys->push_back(one);
  }
  // Of the channel 36.
  std::optional<Load> load() const {
    const Question question{facts, settings, networkName};
    const auto subject = subjectOf(question);
    return ChannelLoads(question, subject ? &*subject : nullptr).of(ieee80211::Band::ghz5, 36);
  }
  ObjectRef recommended(const char* key) const {
    const auto answer = ask(Id::CongestedChannel);
    return answer->info->objectForKey(key);
  }

 private:
  int boxes_ = 0;
};

MATCHER_P(isChannel, number, "is a channel") {
  const auto record = as<ChannelRecord>(arg);
  if (record) *result_listener << "which is channel " << record->channel();
  return record && record->channel() == number;
}

TEST_F(CongestionChecks, DoNotKnowOfTheJoinedChannelWhereTheLinkChangedUnderWay) {
  facts.surveys = Error{Reason::linkChanged, "The link changed its channel."};
  EXPECT_THAT(ask(Id::CongestedChannel), isUnknownFor(Reason::linkChanged));
  add(accessPoint("02:00:00:77:00:00", "Cafe", -60, 36));
  askAbout("Cafe");
  EXPECT_THAT(ask(Id::CongestedChannel), says(false));
}

TEST_F(CongestionChecks, CountOthersBoxesWhereNothingElseIsKnown) {
  addBoxes(6, 36);
  EXPECT_EQ(load(), (Load{Measure::neighbours, 6}));
  EXPECT_THAT(ask(Id::CongestedChannel), says(false));
  addBoxes(1, 36);
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
  EXPECT_THAT(ask(Id::CongestedChannel), tells("CurrentChannel", isChannel(36)));
}

TEST_F(CongestionChecks, DoNotCountWeakOrOwnOnes) {
  addBoxes(3, 36, ieee80211::Band::ghz5, -83);
  EXPECT_EQ(load()->amount, 0);
  addBoxes(1, 36, ieee80211::Band::ghz5, -82);
  EXPECT_EQ(load()->amount, 1);
  add(accessPoint("02:99:99:99:99:99", kName, -50, 36));
  EXPECT_EQ(load()->amount, 1);
  // A second network of the own box, such as one for guests.
  add(accessPoint("06:10:20:30:40:51", "Guests", -50, 36));
  EXPECT_EQ(load()->amount, 1);
  add(accessPoint("02:99:99:99:99:98", "Of unknown strength", 0, 36)).signal.reset();
  EXPECT_EQ(load()->amount, 1);
}

TEST_F(CongestionChecks, CountABoxWithSeveralNetworksOnce) {
  add(accessPoint("02:aa:aa:aa:aa:10", "One", -50, 36));
  add(accessPoint("06:aa:aa:aa:aa:1f", "Two", -50, 36));
  EXPECT_EQ(load()->amount, 1);
  add(accessPoint("02:aa:aa:aa:aa:20", "Next box", -50, 36));
  EXPECT_EQ(load()->amount, 2);
  add(accessPoint("02:bb:bb:bb:bb:bb", "Three", -50, 36)).transmitterBssid = "02:aa:aa:aa:aa:10";
  EXPECT_EQ(load()->amount, 2);
  add(accessPoint("odd", "Of an odd address", -50, 36));
  EXPECT_EQ(load()->amount, 3);
}

TEST_F(CongestionChecks, CountOverlappingBoxesOneAndAHalf) {
  auto& wide = add(accessPoint("02:aa:aa:aa:aa:10", "Wide", -50, 40));
  EXPECT_EQ(load()->amount, 0);
  wide.channel->extent = {.width = ieee80211::Width::mhz40, .center = 38, .secondary = 36};
  EXPECT_EQ(load()->amount, 1.5);
}

TEST_F(CongestionChecks, PreferTheRadiosSurvey) {
  addBoxes(20, 36);
  survey(5180, 1000, 600, 500);
  EXPECT_EQ(load(), (Load{Measure::busyTime, 0.2}));
  EXPECT_THAT(ask(Id::CongestedChannel), says(false));
  survey(5180, 1000, 700, 0);
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
}

TEST_F(CongestionChecks, DoNotCountTheOwnNetworksTraffic) {
  survey(5180, 1000, 900, 100, true);
  facts.surveys->front().receive = milliseconds(700);
  EXPECT_EQ(load(), (Load{Measure::busyTime, 0.5}));
}

TEST_F(CongestionChecks, DoNotBelieveASurveyThatIsShortOrImpossible) {
  survey(5180, 102, 50, 0);
  survey(5180, 1000, 1000, 1000);
  survey(5180, 1000, -5, 0);
  survey(5180, 1000, 500, -1);
  survey(5180, 1000, 100, 500);
  survey(5180, 1000, 5000, 0);
  survey(5180, 1000, 500, {}, true);  // its own frames are not told
  EXPECT_EQ(load()->measure, Measure::neighbours);
  survey(5180, 103, 50, {});
  EXPECT_EQ(load()->measure, Measure::busyTime);
}

TEST_F(CongestionChecks, CannotCountBoxesOfUnknownStrength) {
  auto& silent = add(accessPoint("02:aa:aa:aa:aa:10", "Silent", 0, 36));
  silent.signal.reset();
  EXPECT_EQ(load(), std::nullopt);
  EXPECT_THAT(ask(Id::CongestedChannel), isUnknownFor(Reason::notTold));
  silent.channel->primary = 149;  // far away
  silent.channel->extent.reset();
  EXPECT_EQ(load()->amount, 0);
}

TEST_F(CongestionChecks, BelieveTheOwnAccessPointsUtilizationFirst) {
  add(accessPoint("02:aa:aa:aa:aa:10", "Other", -50, 36)).channelUtilization = 250;
  EXPECT_EQ(load(), (Load{Measure::utilization, 250}));
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
  own().channelUtilization = 191;
  EXPECT_EQ(load(), (Load{Measure::utilization, 191}));
  EXPECT_THAT(ask(Id::CongestedChannel), says(false));
  own().channelUtilization = 192;
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
}

TEST_F(CongestionChecks, NeedASurveyOrAScan) {
  facts.scan = Error{Reason::tookTooLong, ""};
  EXPECT_THAT(ask(Id::CongestedChannel), isUnknownFor(Reason::tookTooLong));
  EXPECT_THAT(ask(Id::Congested2GHz), isUnknownFor(Reason::tookTooLong));
  survey(5180, 1000, 800, 0);
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
}

TEST_F(CongestionChecks, RecommendTheLeastBusyAllowedChannelOfEachClass) {
  addBoxes(2, 1, ieee80211::Band::ghz2);
  addBoxes(1, 6, ieee80211::Band::ghz2);
  addBoxes(3, 11, ieee80211::Band::ghz2);
  addBoxes(2, 36);
  addBoxes(1, 40);
  addBoxes(1, 149);
  addBoxes(1, 153);
  addBoxes(1, 52);
  EXPECT_THAT(recommended("2GHzChannel"), isChannel(6));
  EXPECT_THAT(recommended("5GHzChannel"), isChannel(56));
  EXPECT_THAT(recommended("5GHz40MHzChannel"), isChannel(52));
  EXPECT_THAT(recommended("5GHzNonDFSChannel"), isChannel(40));
}

TEST_F(CongestionChecks, StayOnTheChannelWhereOthersAreNoBetter) {
  facts.link->frequency = 5765;
  own().channel = channelAt(ieee80211::Band::ghz5, 153);
  EXPECT_THAT(recommended("5GHzChannel"), isChannel(153));
  EXPECT_THAT(recommended("5GHz40MHzChannel"), isChannel(149));
  EXPECT_THAT(recommended("2GHzChannel"), isChannel(1));
}

TEST_F(CongestionChecks, RecommendNoChannelWhereTheNetworksOtherBoxesStand) {
  own().channel = channelAt(ieee80211::Band::ghz5, 36);
  addBoxes(1, 40);
  EXPECT_THAT(recommended("5GHzNonDFSChannel"), isChannel(36));
  for (const char* number : {"01", "02", "03", "04", "05", "06"}) {
    add(accessPoint(std::string("02:00:00:99:00:") + number, kName, -50, 36)).bssid[9] = number[1];
  }
  EXPECT_EQ(load()->amount, 0) << "they are no neighbours";
  EXPECT_THAT(recommended("5GHzNonDFSChannel"), isChannel(149));
}

TEST_F(CongestionChecks, OfTheWholeAirAreNotKnownWithoutANewScan) {
  addBoxes(9, 36);
  facts.scan->incomplete = Error{Reason::notPermitted, "no"};
  EXPECT_THAT(ask(Id::CongestedChannel), isUnknownFor(Reason::notPermitted));
  own().channelUtilization = 192;
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
}

TEST_F(CongestionChecks, CompareAllChannelsByOneMeasure) {
  survey(5180, 1000, 600, 0);  // the only channel with a survey
  EXPECT_THAT(recommended("5GHzNonDFSChannel"), isChannel(36));
  for (const int frequency : {5200, 5745, 5765}) survey(frequency, 1000, frequency / 10, 0);
  EXPECT_THAT(recommended("5GHzNonDFSChannel"), isChannel(40));
}

TEST_F(CongestionChecks, RecommendNoCrowdedChannelWhereThereIsAnother) {
  survey(5180, 1000, 900, 0);
  EXPECT_THAT(recommended("5GHzNonDFSChannel"), isChannel(40));
  EXPECT_THAT(recommended("5GHz40MHzChannel"), isChannel(52));
}

TEST_F(CongestionChecks, JudgeABandByWhatIsKnownOfEachChannel) {
  facts.radio->channels = {{.frequency = 5180}, {.frequency = 5745}};
  survey(5180, 1000, 900, 0);
  EXPECT_THAT(ask(Id::Congested5GHz), says(false));
  addBoxes(7, 149);
  EXPECT_THAT(ask(Id::Congested5GHz), says(true));
  facts.surveys->back().busy = milliseconds(100);
  addBoxes(7, 36);
  EXPECT_THAT(ask(Id::Congested5GHz), says(false));
}

TEST_F(CongestionChecks, DoNotBelieveTheUtilizationThatAWeakOneHears) {
  auto& far = add(accessPoint("06:10:20:30:40:50", "Far", -83, 36));
  far.channelUtilization = 255;
  EXPECT_THAT(ask(Id::CongestedChannel), says(false));
  far.signal = -82;
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
}

TEST_F(CongestionChecks, AreSureWhereTooManyAreHeardWellAnyhow) {
  addBoxes(7, 36);
  add(accessPoint("06:10:20:30:40:50", "Unknown", -60, 36)).signal.reset();
  EXPECT_THAT(ask(Id::CongestedChannel), says(true));
}

TEST_F(CongestionChecks, NeedTimeInWhichTheRadioListened) {
  survey(5180, 1000, 1000, 898);
  EXPECT_EQ(load()->measure, Measure::neighbours);
  facts.surveys->back().transmit = milliseconds(897);
  EXPECT_EQ(load()->measure, Measure::busyTime);
}

TEST_F(CongestionChecks, RecommendNothingForARadioThatIsNotKnown) {
  facts.radio = Error{Reason::failed, ""};
  EXPECT_THAT(ask(Id::CongestedChannel), says(false));
  for (const char* key : {"2GHzChannel", "5GHzChannel", "5GHz40MHzChannel", "5GHzNonDFSChannel"}) {
    EXPECT_THAT(recommended(key), IsNull());
  }
}

TEST_F(CongestionChecks, CallABandCrowdedWhenEvenItsBestChannelIs) {
  for (const int channel : {1, 6}) addBoxes(9, channel, ieee80211::Band::ghz2);
  addBoxes(6, 11, ieee80211::Band::ghz2);
  EXPECT_THAT(ask(Id::Congested2GHz), says(false));
  addBoxes(1, 11, ieee80211::Band::ghz2);
  EXPECT_THAT(ask(Id::Congested2GHz), says(true));
  EXPECT_THAT(ask(Id::Congested2GHz), tells("2GHzChannel", isChannel(11)));
  EXPECT_THAT(ask(Id::Congested5GHz), says(false));
}

TEST_F(CongestionChecks, OfABandNeedNoJoinedNetwork) {
  facts.link = Error{Reason::notJoined, ""};
  EXPECT_THAT(ask(Id::Congested5GHz), says(false));
  EXPECT_THAT(ask(Id::CongestedChannel), isUnknownFor(Reason::notJoined));
}

TEST_F(CongestionChecks, OfABandThatTheRadioDoesNotHaveAreNotSupported) {
  facts.radio->channels = {{.frequency = 2412}};
  EXPECT_THAT(ask(Id::Congested5GHz), isUnknownFor(Reason::notSupported));
  EXPECT_THAT(ask(Id::Congested2GHz), says(false));
  facts.radio = Error{Reason::failed, ""};
  EXPECT_THAT(ask(Id::Congested2GHz), isUnknownFor(Reason::failed));
}

}  // namespace
}  // namespace wifi_profile::checks
