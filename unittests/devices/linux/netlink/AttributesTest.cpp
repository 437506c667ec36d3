#include <gtest/gtest.h>

#include "devices/linux/netlink/Attributes.h"
#include "devices/linux/netlink/Interfaces.h"
#include "devices/linux/netlink/NetlinkBytes.h"

namespace wifi_profile::linux::netlink {
namespace {

TEST(Attributes, AreFoundByTypeAndTheLastOneCounts) {
  const ieee80211::Octets bytes = numberAttribute(3, std::uint32_t{7}) + attribute(4, "wlan0") +
                                  numberAttribute(3, std::uint32_t{8});
  const Attributes attributes(bytes);
  EXPECT_EQ(attributes.number<std::uint32_t>(3), 8U);
  EXPECT_EQ(attributes.text(4), "wlan0");
  EXPECT_FALSE(attributes.has(5));
}

TEST(Attributes, TypesAreReadWithoutTheFlagsAboveThem) {
  const ieee80211::Octets bytes = attribute(0x8000 | 9, attribute(1, ieee80211::Octets{5}));
  EXPECT_EQ(Attributes(bytes).nested(9).number<std::uint8_t>(1), 5);
}

TEST(Attributes, ThatAreCutOffAreNotThere) {
  const ieee80211::Octets whole =
      attribute(1, ieee80211::Octets{1, 2, 3, 4}) + attribute(2, ieee80211::Octets{5, 6, 7, 8});
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const ieee80211::Octets cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    const Attributes attributes(cut);
    EXPECT_EQ(attributes.has(1), size >= 8) << size;
    EXPECT_FALSE(attributes.has(2)) << size;
  }
}

TEST(Attributes, ShorterThanTheirOwnHeaderEndTheWalk) {
  ieee80211::Octets bytes = attribute(1, ieee80211::Octets{1}) + attribute(2, ieee80211::Octets{2});
  bytes[8] = 3;
  EXPECT_TRUE(Attributes(bytes).has(1));
  EXPECT_FALSE(Attributes(bytes).has(2));
}

TEST(Attributes, TooShortForANumberHaveNone) {
  const ieee80211::Octets bytes = attribute(1, ieee80211::Octets{1, 2});
  EXPECT_FALSE(Attributes(bytes).number<std::uint32_t>(1));
  EXPECT_TRUE(Attributes(bytes).number<std::uint16_t>(1));
}

TEST(Addresses802, AreSixPairsOfLowerCaseDigits) {
  EXPECT_EQ(addressText(ieee80211::Octets{0x02, 0xAB, 0, 0x0F, 0xF0, 0xFF}), "02:ab:00:0f:f0:ff");
  EXPECT_EQ(addressText(ieee80211::Octets{1, 2, 3, 4, 5}), "");
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
