#include <gtest/gtest.h>

#include "analysis/facts/IpAddresses.h"

namespace wifi_profile::facts {
namespace {

struct KindOfIpv4 {
  const char* address;
  std::optional<Ipv4Kind> kind;
};

class Ipv4Kinds : public testing::TestWithParam<KindOfIpv4> {};

TEST_P(Ipv4Kinds, FollowTheirRfc) {
  EXPECT_EQ(ipv4KindOf(GetParam().address), GetParam().kind) << GetParam().address;
}

INSTANTIATE_TEST_SUITE_P(
    Edges, Ipv4Kinds,
    testing::Values(
        KindOfIpv4{"9.255.255.255", Ipv4Kind::global}, KindOfIpv4{"10.0.0.0", Ipv4Kind::privateUse},
        KindOfIpv4{"10.255.255.255", Ipv4Kind::privateUse},
        KindOfIpv4{"11.0.0.0", Ipv4Kind::global}, KindOfIpv4{"100.63.255.255", Ipv4Kind::global},
        KindOfIpv4{"100.64.0.0", Ipv4Kind::sharedSpace},
        KindOfIpv4{"100.127.255.255", Ipv4Kind::sharedSpace},
        KindOfIpv4{"100.128.0.0", Ipv4Kind::global}, KindOfIpv4{"127.0.0.1", Ipv4Kind::loopback},
        KindOfIpv4{"169.253.255.255", Ipv4Kind::global},
        KindOfIpv4{"169.254.0.1", Ipv4Kind::linkLocal},
        KindOfIpv4{"172.15.255.255", Ipv4Kind::global},
        KindOfIpv4{"172.16.0.0", Ipv4Kind::privateUse},
        KindOfIpv4{"172.31.255.255", Ipv4Kind::privateUse},
        KindOfIpv4{"172.32.0.0", Ipv4Kind::global}, KindOfIpv4{"191.255.255.255", Ipv4Kind::global},
        KindOfIpv4{"192.0.0.2", Ipv4Kind::sharedSpace}, KindOfIpv4{"192.0.1.0", Ipv4Kind::global},
        KindOfIpv4{"192.168.0.1", Ipv4Kind::privateUse},
        KindOfIpv4{"192.169.0.0", Ipv4Kind::global}, KindOfIpv4{"0.0.0.0", Ipv4Kind::noHost},
        KindOfIpv4{"223.255.255.255", Ipv4Kind::global}, KindOfIpv4{"224.0.0.1", Ipv4Kind::noHost},
        KindOfIpv4{"255.255.255.255", Ipv4Kind::noHost}, KindOfIpv4{"", std::nullopt},
        KindOfIpv4{"10.0.0", std::nullopt}, KindOfIpv4{"10.0.0.256", std::nullopt},
        KindOfIpv4{"10.0.0.1/8", std::nullopt}, KindOfIpv4{" 10.0.0.1", std::nullopt},
        KindOfIpv4{"fe80::1", std::nullopt}));

TEST(IpAddresses, WithAZeroByteAreNone) {
  EXPECT_EQ(ipv4KindOf(std::string("10.0.0.1\0x", 10)), std::nullopt);
}

TEST(IpAddresses, OfIpv6AreGlobalUniqueLocalOrOther) {
  EXPECT_EQ(ipv6KindOf("2000::"), Ipv6Kind::global);
  EXPECT_EQ(ipv6KindOf("3fff:ffff::1"), Ipv6Kind::global);
  EXPECT_EQ(ipv6KindOf("4000::"), Ipv6Kind::other);
  EXPECT_EQ(ipv6KindOf("1fff::"), Ipv6Kind::other);
  EXPECT_EQ(ipv6KindOf("fc00::1"), Ipv6Kind::uniqueLocal);
  EXPECT_EQ(ipv6KindOf("fdff::1"), Ipv6Kind::uniqueLocal);
  EXPECT_EQ(ipv6KindOf("fe80::1"), Ipv6Kind::other);
  EXPECT_EQ(ipv6KindOf("::1"), Ipv6Kind::other);
  EXPECT_EQ(ipv6KindOf("fe80::1%wlan0"), std::nullopt);
  EXPECT_EQ(ipv6KindOf("192.0.2.1"), std::nullopt);
}

TEST(IpAddresses, AreInASubnetWhenTheFrontIsTheSame) {
  EXPECT_TRUE(isInSubnet("192.168.43.17", "192.168.43.0/24"));
  EXPECT_FALSE(isInSubnet("192.168.44.17", "192.168.43.0/24"));
  EXPECT_TRUE(isInSubnet("172.20.10.15", "172.20.10.0/28"));
  EXPECT_FALSE(isInSubnet("172.20.10.16", "172.20.10.0/28"));
  EXPECT_TRUE(isInSubnet("8.8.8.8", "0.0.0.0/0"));
  EXPECT_TRUE(isInSubnet("8.8.8.8", "8.8.8.8/32"));
  EXPECT_FALSE(isInSubnet("8.8.8.9", "8.8.8.8/32"));
}

TEST(IpAddresses, AreInNoSubnetThatIsNone) {
  for (const char* subnet : {"", "/", "10.0.0.0", "10.0.0.0/", "10.0.0.0/33", "10.0.0.0/-1",
                             "10.0.0.0/8x", "10.0.0/8", "::/0"}) {
    EXPECT_FALSE(isInSubnet("10.0.0.1", subnet)) << subnet;
  }
  EXPECT_FALSE(isInSubnet("somewhere", "0.0.0.0/0"));
}

}  // namespace
}  // namespace wifi_profile::facts
