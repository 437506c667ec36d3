#include <gtest/gtest.h>

#include "analysis/checks/Names.h"

namespace wifi_profile::checks {
namespace {

TEST(Names, MatchAPatternAsAWholeAndInAnyCase) {
  EXPECT_TRUE(matchesPattern("LinkSys", "linksys"));
  EXPECT_FALSE(matchesPattern("linksys2", "linksys"));
  EXPECT_FALSE(matchesPattern("linksy", "linksys"));
  EXPECT_TRUE(matchesPattern("", ""));
  EXPECT_FALSE(matchesPattern("x", ""));
}

TEST(Names, MatchAStarWithAnyBytesOrNone) {
  EXPECT_TRUE(matchesPattern("NETGEAR", "netgear*"));
  EXPECT_TRUE(matchesPattern("NETGEAR42-5G", "netgear*"));
  EXPECT_TRUE(matchesPattern("a\xFF\nb", "a*b"));
  EXPECT_TRUE(matchesPattern("axbxc", "a*b*c"));
  EXPECT_TRUE(matchesPattern("abab", "*ab"));
  EXPECT_FALSE(matchesPattern("aba", "*ab"));
  EXPECT_TRUE(matchesPattern("", "**"));
  EXPECT_TRUE(matchesPattern("anything", "*"));
}

TEST(Names, MatchManyStarsInBoundedTime) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) pattern += "*a";
  EXPECT_FALSE(matchesPattern(std::string(2000, 'a') + "b", pattern));
}

TEST(Names, LoseTheZerosAtTheirEndOnly) {
  using namespace std::string_literals;
  EXPECT_EQ(withoutZeros("Maker\0\0"s), "Maker");
  EXPECT_EQ(withoutZeros("\0a\0"s), "\0a"s);
  EXPECT_EQ(withoutZeros("\0\0"s), "");
  EXPECT_EQ(withoutZeros(""), "");
}

}  // namespace
}  // namespace wifi_profile::checks
