// The order of names without ICU.

#include <gtest/gtest.h>

#include "runtime/SimpleNameCollator.h"

namespace wifi_profile::runtime {
namespace {

using namespace std::string_literals;

std::string keyOf(std::string_view name) {
  std::string key;
  SimpleNameCollator().appendSortKey(name, key);
  return key;
}

TEST(SimpleNameCollator, IgnoresTheCaseOfAToZ) {
  EXPECT_EQ(keyOf("HOME az AZ"), keyOf("home AZ az"));
  EXPECT_LT(keyOf("apple"), keyOf("Banana"));
  EXPECT_LT(keyOf("Banana"), keyOf("cherry"));
}

TEST(SimpleNameCollator, LeavesWhatIsNoLetterAsItIs) {
  for (const char other : "@[`{0 _\n") EXPECT_EQ(keyOf({&other, 1}), std::string(1, other));
}

TEST(SimpleNameCollator, OrdersOtherLettersByCodePointBehindZ) {
  EXPECT_LT(keyOf("Cafe"), keyOf("Cafz"));
  EXPECT_LT(keyOf("Cafz"), keyOf("Café"));
  EXPECT_LT(keyOf("Café"), keyOf("Caf中"));
  EXPECT_LT(keyOf("Caf中"), keyOf("Caf\U0001F4F6"));
  EXPECT_NE(keyOf("CAFÉ"), keyOf("café"));
}

TEST(SimpleNameCollator, OrdersANameBehindItsFront) {
  EXPECT_EQ(keyOf(""), "");
  EXPECT_LT(keyOf(""), keyOf("A"));
  EXPECT_LT(keyOf("Home"), keyOf("home 2"));
}

TEST(SimpleNameCollator, TakesAnyBytes) {
  EXPECT_EQ(keyOf("A\0\xFF\xC3"s), "a\0\xFF\xC3"s);
  EXPECT_LT(keyOf("A\x7F"), keyOf("a\xFF"));
}

TEST(SimpleNameCollator, AppendsToWhatIsThere) {
  std::string key = "1";
  SimpleNameCollator().appendSortKey("A", key);
  SimpleNameCollator().appendSortKey("B", key);
  EXPECT_EQ(key, "1ab");
}

TEST(NameCollator, IsTheOneThatIsInstalled) {
  SimpleNameCollator collator;
  const InstalledPlatform platform({.collator = &collator});
  EXPECT_EQ(NameCollator::shared(), &collator);
}

}  // namespace
}  // namespace wifi_profile::runtime
