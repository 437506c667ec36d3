#include <gtest/gtest.h>

#include "analysis/ieee80211/Channels.h"

namespace wifi_profile::ieee80211 {
namespace {

TEST(Channels, HaveFrequencies) {
  EXPECT_EQ(frequencyOf(Band::ghz2, 1), 2412);
  EXPECT_EQ(frequencyOf(Band::ghz2, 13), 2472);
  EXPECT_EQ(frequencyOf(Band::ghz2, 14), 2484);
  EXPECT_EQ(frequencyOf(Band::ghz2, 15), std::nullopt);
  EXPECT_EQ(frequencyOf(Band::ghz5, 36), 5180);
  EXPECT_EQ(frequencyOf(Band::ghz5, 177), 5885);
  EXPECT_EQ(frequencyOf(Band::ghz5, 14), std::nullopt);
  EXPECT_EQ(frequencyOf(Band::ghz6, 1), 5955);
  EXPECT_EQ(frequencyOf(Band::ghz6, 2), 5935);
  EXPECT_EQ(frequencyOf(Band::ghz6, 233), 7115);
  EXPECT_EQ(frequencyOf(Band::ghz6, 0), std::nullopt);
  EXPECT_EQ(frequencyOf(Band::ghz6, 234), std::nullopt);
}

TEST(Channels, AreFoundAgainByTheirFrequency) {
  int found = 0;
  for (const Band band : {Band::ghz2, Band::ghz5, Band::ghz6}) {
    for (int channel = -1; channel < 256; ++channel) {
      const auto frequency = frequencyOf(band, channel);
      if (!frequency) continue;
      ++found;
      EXPECT_EQ(bandOf(*frequency), band) << *frequency;
      EXPECT_EQ(channelOf(*frequency), channel) << *frequency;
    }
  }
  EXPECT_EQ(found, 14 + (177 - 32 + 1) + 233);
}

TEST(Channels, BetweenTheGridHaveNoNumber) {
  EXPECT_EQ(channelOf(2413), std::nullopt);
  EXPECT_EQ(channelOf(2477), std::nullopt);
  EXPECT_EQ(channelOf(5181), std::nullopt);
  EXPECT_EQ(channelOf(5940), std::nullopt);
  EXPECT_EQ(channelOf(5960), std::nullopt) << "channel 2 is elsewhere";
}

TEST(Channels, OutsideTheBandsAreOfNone) {
  for (const int frequency : {-1, 0, 2407, 2411, 2485, 4920, 5155, 5890, 5925, 7120, 60480}) {
    EXPECT_EQ(bandOf(frequency), std::nullopt) << frequency;
    EXPECT_EQ(channelOf(frequency), std::nullopt) << frequency;
  }
}

int countTwentyMHz(Band band) {
  int count = 0;
  for (int channel = -300; channel < 300; ++channel) count += isTwentyMHzChannel(band, channel);
  return count;
}

TEST(Channels, OfTwentyMHzAreAsManyAsTheBandsHave) {
  EXPECT_EQ(countTwentyMHz(Band::ghz2), 14);
  EXPECT_EQ(countTwentyMHz(Band::ghz5), 8 + 12 + 8);
  EXPECT_EQ(countTwentyMHz(Band::ghz6), 59 + 1);
}

int countWide(Band band, int width) {
  int count = 0;
  for (int lowest = -300; lowest < 300; ++lowest) count += isWideChannel(band, lowest, width);
  return count;
}

TEST(Channels, ThatAreWideAreAsManyAsTheBandsHave) {
  EXPECT_EQ(countWide(Band::ghz2, 2), 0);
  EXPECT_EQ(countWide(Band::ghz5, 2), 4 + 6 + 4);
  EXPECT_EQ(countWide(Band::ghz5, 4), 2 + 3 + 2);
  EXPECT_EQ(countWide(Band::ghz5, 8), 3);
  EXPECT_EQ(countWide(Band::ghz5, 16), 0);
  EXPECT_EQ(countWide(Band::ghz6, 2), 29);
  EXPECT_EQ(countWide(Band::ghz6, 4), 14);
  EXPECT_EQ(countWide(Band::ghz6, 8), 7);
  EXPECT_EQ(countWide(Band::ghz6, 16), 6);
}

TEST(Channels, ThatNeedRadarDetectionAreTheMiddleOfFiveGigahertz) {
  for (const int channel : {52, 56, 60, 64, 100, 116, 144}) {
    EXPECT_TRUE(needsRadarDetection(channel)) << channel;
  }
  for (const int channel : {1, 36, 48, 149, 165, 177}) {
    EXPECT_FALSE(needsRadarDetection(channel)) << channel;
  }
}

}  // namespace
}  // namespace wifi_profile::ieee80211
