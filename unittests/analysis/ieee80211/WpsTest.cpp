#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/Wps.h"

namespace wifi_profile::ieee80211 {
namespace {

// Two octets of id, two of length (the high ones first), the value.
Octets attribute(std::uint16_t id, const Octets& value) {
  return Octets{static_cast<std::uint8_t>(id >> 8U), static_cast<std::uint8_t>(id & 0xFFU),
                static_cast<std::uint8_t>(value.size() >> 8U),
                static_cast<std::uint8_t>(value.size() & 0xFFU)} +
         value;
}

Octets manufacturer(std::string_view name) { return attribute(0x1021, bytesOf(name)); }
Octets modelName(std::string_view name) { return attribute(0x1023, bytesOf(name)); }

std::optional<WpsInformation> wpsOf(const Octets& attributes) { return parseWps({attributes}); }

TEST(Wps, TellsNames) {
  const auto wps = wpsOf(attribute(0x104A, {0x10}) + manufacturer("Fictional Radios") +
                         modelName(std::string_view("\xFF\0\x1B", 3)));
  ASSERT_TRUE(wps);
  EXPECT_EQ(wps->manufacturer, "Fictional Radios");
  EXPECT_EQ(wps->modelName, std::string("\xFF\0\x1B", 3));
  EXPECT_EQ(wpsOf(modelName("")).value().modelName, "");
}

TEST(Wps, CutsLongTextsAtTheirLimit) {
  const auto wps = wpsOf(attribute(0x1021, Octets(65, 'm')) + attribute(0x1023, Octets(33, 'n')));
  ASSERT_TRUE(wps);
  EXPECT_EQ(wps->manufacturer, std::string(64, 'm'));
  EXPECT_EQ(wps->modelName, std::string(32, 'n'));
}

TEST(Wps, KeepsWhatCameBeforeAnAttributeThatIsCutOff) {
  const Octets front = manufacturer("Fictional Radios");
  const Octets whole = front + modelName("Box");
  for (std::size_t size = front.size(); size < whole.size(); ++size) {
    const auto wps = parseWps({Bytes(whole).first(size)});
    ASSERT_TRUE(wps);
    EXPECT_EQ(wps->manufacturer, "Fictional Radios") << size;
    EXPECT_EQ(wps->modelName, std::nullopt) << size;
  }
}

TEST(Wps, AnAttributeThatComesAgainWithAnotherValueIsNotKnown) {
  EXPECT_EQ(wpsOf(modelName("a") + modelName("a")).value().modelName, "a");
  EXPECT_EQ(wpsOf(modelName("a") + modelName("b") + modelName("b")).value().modelName,
            std::nullopt);
}

TEST(Wps, GoesOnInTheNextElementWhereverItWasCut) {
  const Octets whole = manufacturer("Fictional Radios") + modelName("Box");
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const auto wps = parseWps({Bytes(whole).first(size), Bytes(whole).subspan(size)});
    ASSERT_TRUE(wps);
    EXPECT_EQ(wps->manufacturer, "Fictional Radios") << size;
    EXPECT_EQ(wps->modelName, "Box") << size;
  }
}

TEST(Wps, OfNoElementOrOfTooManyIsNotKnown) {
  EXPECT_EQ(parseWps({}), std::nullopt);
  EXPECT_TRUE(parseWps(std::vector<Bytes>(8)));
  EXPECT_FALSE(parseWps(std::vector<Bytes>(9)));
}

}  // namespace
}  // namespace wifi_profile::ieee80211
