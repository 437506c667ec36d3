#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/Network.h"

namespace wifi_profile::ieee80211 {
namespace {

using testing::ElementsAre;

TEST(SsidElement, HoldsAnyBytes) {
  const Octets bytes{'a', 0, 0xFF, 0x1B};
  const auto ssid = parseSsid(bytes);
  ASSERT_TRUE(ssid);
  EXPECT_EQ(ssid->name, std::string("a\0\xFF\x1B", 4));
  EXPECT_FALSE(ssid->hidden);
}

TEST(SsidElement, IsHiddenWhenItIsEmptyOrAllZeros) {
  EXPECT_TRUE(parseSsid({}).value().hidden);
  EXPECT_TRUE(parseSsid(zeros(1)).value().hidden);
  EXPECT_TRUE(parseSsid(zeros(32)).value().hidden);
  EXPECT_EQ(parseSsid(zeros(32)).value().name.size(), 32U);
  EXPECT_FALSE(parseSsid(zeros(31) + Octets{1}).value().hidden);
}

TEST(SsidElement, LongerThanANameMayBeIsDamaged) { EXPECT_FALSE(parseSsid(zeros(33))); }

TEST(RatesElements, AreOneListInOrder) {
  // 54, 1 basic, 11 Mbit/s; 6 basic and 1 Mbit/s again.
  const auto rates = parseRates(Octets{0x6C, 0x82, 0x16}, Octets{0x8C, 0x02});
  ASSERT_TRUE(rates);
  EXPECT_THAT(rates->supported, ElementsAre(2, 12, 22, 108));
  EXPECT_THAT(rates->basic, ElementsAre(2, 12));
}

TEST(RatesElements, SkipOctetsThatAreNoRates) {
  // 6 Mbit/s; HT (127) and SAE hash to element (123) are needed; 0 and 60 Mbit/s are nothing.
  const auto rates = parseRates(Octets{0x8C, 0xFF, 0xFB, 0x80, 0xF8}, {});
  ASSERT_TRUE(rates);
  EXPECT_THAT(rates->supported, ElementsAre(12));
  EXPECT_THAT(rates->basic, ElementsAre(12));
}

TEST(RatesElements, WithoutOctetsAreDamaged) {
  EXPECT_FALSE(parseRates({}, {}));
  EXPECT_FALSE(parseRates(Octets{0x82}, Bytes{}));
}

TEST(RatesElements, TellTheGenerationsThatTheyBelongTo) {
  const auto old = parseRates(Octets{0x82, 0x84, 0x0B, 0x16}, {}).value();
  EXPECT_TRUE(old.hasBRates());
  EXPECT_FALSE(old.hasOfdmRates());
  const auto both = parseRates(Octets{0x02, 0x8C}, {}).value();
  EXPECT_TRUE(both.hasBRates());
  EXPECT_TRUE(both.hasOfdmRates());
  const auto modern = parseRates(Octets{0x8C, 0x18}, {}).value();
  EXPECT_FALSE(modern.hasBRates());
  EXPECT_TRUE(modern.hasOfdmRates());
}

TEST(TimElement, TellsThePeriod) {
  // Count, period, bitmap control, bitmap.
  EXPECT_EQ(parseTim(Octets{2, 3, 0, 0}), (Dtim{.period = 3}));
}

TEST(TimElement, ThatCannotBeIsDamaged) {
  EXPECT_FALSE(parseTim(Octets{0, 0, 0, 0})) << "a period of 0";
  EXPECT_FALSE(parseTim(Octets{3, 3, 0, 0})) << "a count that never comes";
  EXPECT_FALSE(parseTim(Octets{0, 3, 0})) << "too short";
  EXPECT_FALSE(parseTim({}));
}

TEST(MultipleBssidIndexElement, TellsThePeriodInBeacons) {
  // Index, period, count; probe responses have the index alone.
  EXPECT_EQ(parseIndexedDtim(Octets{1, 3, 2}), (Dtim{.period = 3}));
  EXPECT_FALSE(parseIndexedDtim(Octets{1}));
  EXPECT_FALSE(parseIndexedDtim(Octets{1, 3}));
  EXPECT_FALSE(parseIndexedDtim(Octets{1, 0, 0}));
}

std::optional<Country> country(const std::string& text) {
  return parseCountry(bytesOf(text) + Octets{1, 13, 20});
}

TEST(CountryElement, TellsTheCodeWhateverTheEnvironment) {
  EXPECT_EQ(country("DE "), Country{.code = "DE"});
  EXPECT_EQ(country("DEI"), Country{.code = "DE"});
  EXPECT_EQ(country("XXX"), Country{.code = "XX"});
  EXPECT_EQ(country("US\x04"), Country{.code = "US"});
}

TEST(CountryElement, WithoutACodeOrAChannelIsDamaged) {
  EXPECT_FALSE(country("de "));
  EXPECT_FALSE(country("0O "));
  EXPECT_FALSE(parseCountry(bytesOf("DE ")));
  EXPECT_FALSE(parseCountry(bytesOf("DE ") + Octets{1, 13}));
  EXPECT_FALSE(parseCountry({}));
}

TEST(BssLoadElement, TellsTheUtilization) {
  // 258 stations, the low octet first; utilization; admission capacity.
  EXPECT_EQ(parseBssLoad(Octets{2, 1, 255, 0, 0}), (BssLoad{.channelUtilization = 255}));
  EXPECT_TRUE(parseBssLoad(Octets{2, 1, 255, 0, 0, 9})) << "a later edition's field";
  EXPECT_FALSE(parseBssLoad(Octets{2, 1, 255, 0}));
}

}  // namespace
}  // namespace wifi_profile::ieee80211
