#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/OperatingChannel.h"

namespace wifi_profile::ieee80211 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// First octets of the HT Operation Information: secondary channel offset, and leave to send wide.
constexpr std::uint8_t kAbove = 0x05;
constexpr std::uint8_t kBelow = 0x07;

Octets channelElement(std::uint8_t channel) { return element(kDsParameterSetId, {channel}); }

std::optional<OperatingChannel> operating(const Octets& elements,
                                          std::optional<int> frequency = {}) {
  return readOperatingChannel(ElementSet(elements), frequency);
}

OperatingChannel known(Band band, int primary, const Extent& extent) {
  return {.band = band, .primary = primary, .extent = extent};
}

OperatingChannel extentUnknown(Band band, int primary) {
  return {.band = band, .primary = primary, .extent = std::nullopt};
}

TEST(OperatingChannel, OfOldNetworksIsThatOfDsParameterSet) {
  EXPECT_EQ(operating(channelElement(11)), known(Band::ghz2, 11, {.center = 11}));
}

TEST(OperatingChannel, IsWhereItWasHeardWhenNoElementTells) {
  EXPECT_EQ(operating({}, 5240), known(Band::ghz5, 48, {.center = 48}));
  EXPECT_EQ(operating(Octets{3, 0}, 2412), known(Band::ghz2, 1, {.center = 1}));
  EXPECT_FALSE(operating({}));
  EXPECT_FALSE(operating({}, 5210)) << "the middle of a wide channel";
  EXPECT_FALSE(operating({}, 60480));
}

TEST(OperatingChannel, OfTheElementsCountsWhenItIsHeardNextToIt) {
  EXPECT_EQ(operating(channelElement(6), 2432).value().primary, 6);
}

TEST(OperatingChannel, OfFiveAndSixGigahertzTakesNoNoticeOfADsParameterSet) {
  EXPECT_EQ(operating(sixGhzOperation(5, 0, 5, 0) + channelElement(5), 5975),
            known(Band::ghz6, 5, {.center = 5}));
  EXPECT_EQ(operating(channelElement(5), 5975), extentUnknown(Band::ghz6, 5));
  EXPECT_EQ(operating(channelElement(6) + htOperation(36, 0), 5180).value().primary, 36);
  EXPECT_EQ(operating(channelElement(6), 5180).value().primary, 36);
}

TEST(OperatingChannel, IsUnknownWhereThingsContradict) {
  EXPECT_FALSE(operating(channelElement(6) + channelElement(7)));
  EXPECT_FALSE(operating(channelElement(6) + htOperation(7, 0)));
  EXPECT_FALSE(operating(htOperation(6, 0), 5180)) << "another band";
  EXPECT_FALSE(operating(channelElement(15)));
  EXPECT_FALSE(operating(channelElement(37))) << "not on the grid";
  EXPECT_FALSE(operating(sixGhzOperation(37, 0, 37, 0) + channelElement(1)));
  EXPECT_FALSE(operating(sixGhzOperation(36, 0, 36, 0)));
}

TEST(OperatingChannel, OfHtIsTwentyMHzWideWithoutASecondaryChannel) {
  for (const std::uint8_t information : Octets{0x00, 0x04, 0x01, 0x03}) {
    EXPECT_EQ(operating(htOperation(6, information)), known(Band::ghz2, 6, {.center = 6}));
  }
}

TEST(OperatingChannel, OfHtIsFortyMHzWideWithOne) {
  EXPECT_EQ(operating(htOperation(6, kAbove)),
            known(Band::ghz2, 6, {.width = Width::mhz40, .center = 8, .secondary = 10}));
  EXPECT_EQ(operating(htOperation(6, kBelow)),
            known(Band::ghz2, 6, {.width = Width::mhz40, .center = 4, .secondary = 2}));
  EXPECT_EQ(operating(htOperation(48, kBelow)),
            known(Band::ghz5, 48, {.width = Width::mhz40, .center = 46, .secondary = 44}));
}

TEST(OperatingChannel, HasNoExtentWhereNoSecondaryChannelCanBe) {
  EXPECT_EQ(operating(htOperation(2, kBelow)), extentUnknown(Band::ghz2, 2));
  EXPECT_EQ(operating(htOperation(11, kAbove)), extentUnknown(Band::ghz2, 11));
  EXPECT_EQ(operating(htOperation(14, kBelow)), extentUnknown(Band::ghz2, 14));
  EXPECT_EQ(operating(htOperation(36, kBelow)), extentUnknown(Band::ghz5, 36));
  EXPECT_EQ(operating(htOperation(40, kAbove)), extentUnknown(Band::ghz5, 40));
}

TEST(OperatingChannel, HasNoExtentWhenAnElementAboutItIsDamaged) {
  const Octets ds = channelElement(6);
  EXPECT_EQ(operating(ds + element(kHtOperationId, zeros(21))), extentUnknown(Band::ghz2, 6));
  EXPECT_EQ(operating(ds + htOperation(6, 0x06)), extentUnknown(Band::ghz2, 6)) << "reserved";
  EXPECT_EQ(operating(ds + htCapabilities()), extentUnknown(Band::ghz2, 6)) << "half of HT";
  EXPECT_EQ(operating(htOperation(36, kAbove) + element(kVhtOperationId, {1, 42, 0, 0})),
            extentUnknown(Band::ghz5, 36));
  EXPECT_EQ(operating(htOperation(36, kAbove) + vhtOperation(4, 42, 0)),
            extentUnknown(Band::ghz5, 36));
  EXPECT_EQ(operating(htOperation(36, kAbove) + vhtOperation(1, 42, 0) + vhtOperation(1, 42, 50)),
            extentUnknown(Band::ghz5, 36));
}

TEST(OperatingChannel, HasNoExtentWhenAnElementAboutItNamesChannelZero) {
  EXPECT_EQ(operating(htOperation(0, 0), 5180), extentUnknown(Band::ghz5, 36));
  EXPECT_EQ(operating(sixGhzOperation(0, 0, 0, 0), 5955), extentUnknown(Band::ghz6, 1));
}

TEST(OperatingChannel, HasNoExtentWhenTheRestIsCutOff) {
  EXPECT_EQ(operating(htOperation(36, kAbove) + Octets{kVhtOperationId, 5, 1}),
            extentUnknown(Band::ghz5, 36));
}

std::optional<Extent> vht(std::uint8_t primary, std::uint8_t information, const Octets& operation,
                          std::uint8_t segment2 = 0) {
  return operating(htOperation(primary, information, segment2) + operation).value().extent;
}

TEST(OperatingChannel, OfVhtIsThatOfHtWhenItIsNarrow) {
  EXPECT_EQ(vht(36, kAbove, vhtOperation(0, 0, 0)),
            (Extent{.width = Width::mhz40, .center = 38, .secondary = 40}));
  EXPECT_EQ(vht(36, 0, vhtOperation(0, 0, 0)), (Extent{.width = Width::mhz20, .center = 36}));
}

TEST(OperatingChannel, OfVhtIsEightyMHzWideAndMore) {
  EXPECT_EQ(vht(44, kAbove, vhtOperation(1, 42, 0)),
            (Extent{.width = Width::mhz80, .center = 42, .secondary = 48}));
  EXPECT_EQ(vht(64, kBelow, vhtOperation(1, 58, 50)),
            (Extent{.width = Width::mhz160, .center = 50, .secondary = 60}));
  EXPECT_EQ(
      vht(36, kAbove, vhtOperation(1, 42, 155)),
      (Extent{.width = Width::mhz80Plus80, .center = 42, .secondCenter = 155, .secondary = 40}));
}

TEST(OperatingChannel, OfVhtInTheDeprecatedWay) {
  EXPECT_EQ(vht(100, kAbove, vhtOperation(2, 114, 0)),
            (Extent{.width = Width::mhz160, .center = 114, .secondary = 104}));
  EXPECT_EQ(
      vht(36, kAbove, vhtOperation(3, 42, 106)),
      (Extent{.width = Width::mhz80Plus80, .center = 42, .secondCenter = 106, .secondary = 40}));
  EXPECT_FALSE(vht(36, kAbove, vhtOperation(3, 42, 50))) << "these two halves touch";
}

TEST(OperatingChannel, OfVhtMayTellItsSecondMiddleInHtOperation) {
  EXPECT_EQ(vht(36, kAbove, vhtOperation(1, 42, 0), 50),
            (Extent{.width = Width::mhz160, .center = 50, .secondary = 40}));
}

TEST(OperatingChannel, OfVhtThatCannotBeHasNoExtent) {
  EXPECT_FALSE(vht(36, kAbove, vhtOperation(1, 58, 0))) << "does not have the primary channel";
  EXPECT_FALSE(vht(36, kAbove, vhtOperation(1, 43, 0))) << "not on the grid";
  EXPECT_FALSE(vht(36, kAbove, vhtOperation(1, 42, 58))) << "a reserved distance";
  EXPECT_FALSE(vht(36, kAbove, vhtOperation(1, 42, 90))) << "no such second half";
  EXPECT_FALSE(vht(36, 0, vhtOperation(1, 42, 0))) << "HT has no secondary channel";
  EXPECT_FALSE(vht(6, kAbove, vhtOperation(1, 7, 0))) << "2.4 GHz is not wide enough";
}

TEST(OperatingChannel, OfHeTellsVhtWhereThereIsNoVhtOperation) {
  // Parameters with bit 14, BSS color, basic HE-MCS and NSS set, VHT Operation Information.
  const auto he = [](std::uint8_t segment0) {
    return extensionElement(kHeOperationExtension, {0, 0x40, 0, 0, 0, 0, 1, segment0, 0});
  };
  const Extent extent{.width = Width::mhz80, .center = 42, .secondary = 40};
  EXPECT_EQ(vht(36, kAbove, he(42)), extent);
  EXPECT_EQ(vht(36, kAbove, he(42) + vhtOperation(1, 42, 0)), extent);
  EXPECT_FALSE(vht(36, kAbove, he(58) + vhtOperation(1, 42, 0)));
}

TEST(OperatingChannel, OfHeSkipsTheCoHostedIndicatorBeforeSixGigahertz) {
  // Bits 15 and 17: one octet stands between.
  const Octets he =
      extensionElement(kHeOperationExtension, {0, 0x80, 0x02, 0, 0, 0, 3, 37, 2, 39, 0, 6});
  EXPECT_EQ(operating(he),
            known(Band::ghz6, 37, {.width = Width::mhz80, .center = 39, .secondary = 33}));
}

std::optional<Extent> six(std::uint8_t primary, std::uint8_t width, std::uint8_t segment0,
                          std::uint8_t segment1) {
  const auto channel = operating(sixGhzOperation(primary, width, segment0, segment1));
  return channel ? channel->extent : std::nullopt;
}

TEST(OperatingChannel, OfSixGigahertzHasAllWidths) {
  EXPECT_EQ(six(2, 0, 2, 0), (Extent{.width = Width::mhz20, .center = 2}));
  EXPECT_EQ(six(233, 0, 233, 0), (Extent{.width = Width::mhz20, .center = 233}));
  EXPECT_EQ(six(5, 1, 3, 0), (Extent{.width = Width::mhz40, .center = 3, .secondary = 1}));
  EXPECT_EQ(six(13, 2, 7, 0), (Extent{.width = Width::mhz80, .center = 7, .secondary = 9}));
  EXPECT_EQ(six(13, 3, 7, 15), (Extent{.width = Width::mhz160, .center = 15, .secondary = 9}));
  EXPECT_EQ(six(13, 3, 7, 39),
            (Extent{.width = Width::mhz80Plus80, .center = 7, .secondCenter = 39, .secondary = 9}));
}

TEST(OperatingChannel, OfSixGigahertzThatCannotBeHasNoExtent) {
  EXPECT_FALSE(six(1, 0, 5, 0));
  EXPECT_FALSE(six(233, 1, 235, 0));
  EXPECT_FALSE(six(13, 3, 7, 0));
  EXPECT_FALSE(six(13, 3, 7, 23));
  EXPECT_FALSE(operating({}, 5955).value().extent) << "nothing tells the width";
}

Octets widest(const Octets& operation) { return sixGhzOperation(5, 3, 7, 15) + operation; }

TEST(OperatingChannel, OfEhtCountsBeforeThatOfHe) {
  EXPECT_EQ(operating(widest(ehtOperation(4, 15, 31))).value().extent,
            (Extent{.width = Width::mhz320, .center = 31, .secondary = 1}));
  EXPECT_EQ(operating(widest(ehtOperation(3, 7, 15))).value().extent,
            (Extent{.width = Width::mhz160, .center = 15, .secondary = 1}));
  // Without information the parameters alone: as wide as HE.
  EXPECT_EQ(operating(widest(extensionElement(kEhtOperationExtension, zeros(5)))).value().extent,
            (Extent{.width = Width::mhz160, .center = 15, .secondary = 1}));
  EXPECT_EQ(operating(htOperation(36, kAbove) + ehtOperation(3, 42, 50)).value().extent,
            (Extent{.width = Width::mhz160, .center = 50, .secondary = 40}));
}

TEST(OperatingChannel, OfEhtThatCannotBeHasNoExtent) {
  EXPECT_FALSE(operating(widest(ehtOperation(4, 47, 31))).value().extent)
      << "halves without the primary";
  EXPECT_FALSE(operating(widest(ehtOperation(5, 15, 31))).value().extent) << "reserved";
  EXPECT_FALSE(operating(htOperation(36, kAbove) + ehtOperation(4, 50, 66)).value().extent)
      << "5 GHz is not wide enough";
}

TEST(OperatingChannel, OfEhtMayLeaveChannelsOut) {
  const auto channel = operating(widest(ehtOperation(2, 7, 0, 0x0004)));
  ASSERT_TRUE(channel && channel->extent);
  EXPECT_EQ(channel->extent->punctured, 0x0004);
  EXPECT_THAT(overlappedChannels(*channel), ElementsAre(1, 5, 13));
  EXPECT_FALSE(operating(widest(ehtOperation(2, 7, 0, 0x0002))).value().extent)
      << "the primary one";
  EXPECT_FALSE(operating(widest(ehtOperation(2, 7, 0, 0x0010))).value().extent)
      << "a fifth of four";
  EXPECT_FALSE(operating(widest(ehtOperation(1, 3, 0, 0x0001))).value().extent) << "too narrow";
}

TEST(OperatingChannel, OverlapsWhatItTakesInFiveAndSixGigahertz) {
  EXPECT_THAT(overlappedChannels(operating(htOperation(36, 0)).value()), ElementsAre(36));
  EXPECT_THAT(
      overlappedChannels(operating(htOperation(36, kAbove) + vhtOperation(1, 42, 0)).value()),
      ElementsAre(36, 40, 44, 48));
  EXPECT_THAT(
      overlappedChannels(operating(htOperation(149, kAbove) + vhtOperation(1, 155, 42)).value()),
      ElementsAre(36, 40, 44, 48, 149, 153, 157, 161));
  EXPECT_THAT(overlappedChannels(operating(sixGhzOperation(2, 0, 2, 0)).value()), ElementsAre(2));
  EXPECT_THAT(overlappedChannels(operating({}, 5955).value()), IsEmpty());
}

TEST(OperatingChannel, OverlapsItsNeighboursIn24Gigahertz) {
  EXPECT_THAT(overlappedChannels(operating(channelElement(1)).value()), ElementsAre(1, 2, 3, 4, 5));
  EXPECT_THAT(overlappedChannels(operating(channelElement(6)).value()),
              ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10));
  EXPECT_THAT(overlappedChannels(operating(channelElement(14)).value()),
              ElementsAre(11, 12, 13, 14));
  EXPECT_THAT(overlappedChannels(operating(htOperation(3, kAbove)).value()),
              ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
}

TEST(OperatingChannel, NeedsRadarDetectionWhenAnyOfItsChannelsDoes) {
  EXPECT_EQ(
      needsRadarDetection(operating(htOperation(36, kAbove) + vhtOperation(1, 42, 0)).value()),
      false);
  EXPECT_EQ(
      needsRadarDetection(operating(htOperation(36, kAbove) + vhtOperation(1, 42, 50)).value()),
      true);
  EXPECT_EQ(needsRadarDetection(operating(htOperation(100, kBelow)).value()), true);
  EXPECT_EQ(needsRadarDetection(operating(htOperation(36, kBelow)).value()), std::nullopt);
  EXPECT_EQ(needsRadarDetection(operating(sixGhzOperation(53, 0, 53, 0)).value()), false);
}

}  // namespace
}  // namespace wifi_profile::ieee80211
