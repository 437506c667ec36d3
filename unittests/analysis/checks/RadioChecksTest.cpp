#include "analysis/checks/CheckFixture.h"

namespace wifi_profile::checks {
namespace {

using ieee80211::Band;
using testing::IsNull;

class RadioChecks : public CheckTest {};

TEST_F(RadioChecks, CallTheSignalPoorBelowTheThreshold) {
  facts.link->signal = -75;
  EXPECT_THAT(ask(Id::PoorSignal), says(false));
  facts.link->signal = -76;
  EXPECT_THAT(ask(Id::PoorSignal), says(true));
  EXPECT_THAT(ask(Id::PoorSignal), tells("RSSI", isInteger(-76)));
}

TEST_F(RadioChecks, TakeTheScansSignalWhereTheLinkHasNone) {
  facts.link->signal.reset();
  EXPECT_THAT(ask(Id::PoorSignal), tells("RSSI", isInteger(-61)));
  own().signal.reset();
  EXPECT_THAT(ask(Id::PoorSignal), isUnknownFor(Reason::notTold));
  facts.scan->accessPoints.clear();
  EXPECT_THAT(ask(Id::PoorSignal), isUnknownFor(Reason::notInRange));
}

TEST_F(RadioChecks, TellTheNoiseOfTheChannelInUse) {
  std::vector<facts::ChannelSurvey> surveys(2);
  surveys[0].frequency = 5180;
  surveys[0].noise = -90;
  surveys[1].frequency = 5200;
  surveys[1].inUse = true;
  surveys[1].noise = -95;
  facts.surveys = surveys;
  EXPECT_THAT(ask(Id::PoorSignal), tells("Noise", isInteger(-95)));
  add(accessPoint("02:00:00:00:00:01", "Cafe", -50, 36));
  askAbout("Cafe");
  EXPECT_THAT(ask(Id::PoorSignal), tells("Noise", isInteger(-90)));
}

TEST_F(RadioChecks, LeaveOutANoiseThatIsNotKnown) {
  EXPECT_THAT(ask(Id::PoorSignal), tells("Noise", IsNull()));
}

TEST_F(RadioChecks, CallIntervalsLongAboveTheThresholds) {
  EXPECT_THAT(ask(Id::LongBeaconInterval), says(false));
  own().beaconInterval = 200;
  own().dtimPeriod = 3;
  EXPECT_THAT(ask(Id::LongBeaconInterval), says(false));
  EXPECT_THAT(ask(Id::LongDTIMInterval), says(false));
  own().beaconInterval = 201;
  own().dtimPeriod = 4;
  EXPECT_THAT(ask(Id::LongBeaconInterval), says(true));
  EXPECT_THAT(ask(Id::LongBeaconInterval), tells("BeaconInterval", isInteger(201)));
  EXPECT_THAT(ask(Id::LongDTIMInterval), says(true));
  EXPECT_THAT(ask(Id::LongDTIMInterval), tells("DTIMInterval", isInteger(4)));
}

TEST_F(RadioChecks, BelieveTheLinkOverTheScan) {
  facts.link->beaconInterval = 1000;
  facts.link->dtimPeriod = 10;
  EXPECT_THAT(ask(Id::LongBeaconInterval), tells("BeaconInterval", isInteger(1000)));
  EXPECT_THAT(ask(Id::LongDTIMInterval), tells("DTIMInterval", isInteger(10)));
}

TEST_F(RadioChecks, FindASecondaryChannelIn24GHz) {
  facts.link->frequency = 2437;
  own().channel = channelAt(ieee80211::Band::ghz2, 6);
  EXPECT_THAT(ask(Id::HT402GHzChannel), says(false));
  own().channel->extent = {.width = ieee80211::Width::mhz40, .center = 8, .secondary = 10};
  EXPECT_THAT(ask(Id::HT402GHzChannel), says(true));
  own().channel->extent.reset();
  EXPECT_THAT(ask(Id::HT402GHzChannel), isUnknownFor(Reason::notTold));
  facts.scan->accessPoints.clear();
  EXPECT_THAT(ask(Id::HT402GHzChannel), isUnknownFor(Reason::notInRange));
}

TEST_F(RadioChecks, FindNoSecondaryChannelOf24GHzInOtherBands) {
  own().channel->extent = {.width = ieee80211::Width::mhz40, .center = 38, .secondary = 40};
  EXPECT_THAT(ask(Id::HT402GHzChannel), says(false));
}

TEST_F(RadioChecks, FindTheFourRatesOf80211bAmongTheBasicOnes) {
  for (const int rate : {2, 4, 11, 22}) {
    own().basicRates = {12, rate};
    EXPECT_THAT(ask(Id::LegacyRates11b), says(true)) << rate;
  }
  own().basicRates = {12, 24, 48, 18};
  EXPECT_THAT(ask(Id::LegacyRates11b), says(false));
  own().basicRates.clear();
  EXPECT_THAT(ask(Id::LegacyRates11b), isUnknownFor(Reason::notTold));
}

TEST_F(RadioChecks, CompareModesWithinNameAndBand) {
  auto& other = add(accessPoint("02:10:20:30:40:99", kName, -70, 149));
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(false));
  other.modes.ac = false;
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(true));
  EXPECT_THAT(ask(Id::ConflictingPHYMode11N), says(false));
  other.modes.n = false;
  EXPECT_THAT(ask(Id::ConflictingPHYMode11N), says(true));
  other.ssid = "Other";
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(false));
  other.ssid = kName;
  other.channel = channelAt(ieee80211::Band::ghz2, 1);
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(false));
  EXPECT_THAT(ask(Id::ConflictingPHYMode11N), says(false));
}

TEST_F(RadioChecks, DoNotCompareWithAnAccessPointThatTellsNoMode) {
  add(accessPoint("02:10:20:30:40:99", kName, -70, 149)).modes = {};
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(false));
  own().modes = {};
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), isUnknownFor(Reason::notTold));
}

TEST_F(RadioChecks, CompareModesInABandThatTheJoinedOneIsNotIn) {
  facts.link->frequency = 2412;
  own().channel = channelAt(ieee80211::Band::ghz2, 1);
  auto& one = add(accessPoint("02:10:20:30:40:98", kName, -70, 36));
  one.modes = {.a = true, .n = true, .ac = true};
  const auto other = accessPoint("02:10:20:30:40:99", kName, -70, 149);
  add(other).modes = {.a = true, .n = true, .ac = true};
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(false));
  facts.scan->accessPoints.back().modes.ac = false;
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(true));
  EXPECT_THAT(ask(Id::ConflictingPHYMode11N), says(false));
}

TEST_F(RadioChecks, Compare80211acIn5GHzAlone) {
  facts.link->frequency = 2412;
  own().channel = channelAt(ieee80211::Band::ghz2, 1);
  add(accessPoint("02:10:20:30:40:99", kName, -70, 6, ieee80211::Band::ghz2)).modes.ac = true;
  own().modes.ac = false;
  EXPECT_THAT(ask(Id::ConflictingPHYMode11AC), says(false));
}

TEST_F(RadioChecks, NameTheSupportedModes) {
  own().modes = {.a = true, .b = true, .g = true, .n = true, .ac = true, .ax = true, .be = true};
  const auto answer = ask(Id::ConflictingPHYMode11N);
  const auto modes = as<Array>(answer->info->objectForKey("SupportedPHYModes"));
  EXPECT_EQ(runtime::jsonText(modes),
            R"(["802.11a","802.11b","802.11g","802.11n","802.11ac","802.11ax","802.11be"])");
}

}  // namespace
}  // namespace wifi_profile::checks
