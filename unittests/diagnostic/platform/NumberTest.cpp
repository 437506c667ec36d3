#include <gtest/gtest.h>
#include <limits>

#include "diagnostic/platform/Number.h"

namespace wifi_profile {
namespace {

TEST(Number, KeepsItsKind) {
  EXPECT_TRUE(Number::withBool(true)->isBoolean());
  EXPECT_FALSE(Number::withBool(true)->isInteger());
  EXPECT_TRUE(Number::withInteger(1)->isInteger());
  EXPECT_TRUE(Number::withUnsigned(1)->isInteger());
  EXPECT_FALSE(Number::withInteger(1)->isBoolean());
  EXPECT_TRUE(Number::withDouble(1)->isDouble());
  EXPECT_FALSE(Number::withDouble(1)->isInteger());
}

TEST(Number, IsEqualOnlyToTheSameValueOfTheSameKind) {
  const NumberRef ones[] = {Number::withBool(true), Number::withInteger(1), Number::withUnsigned(1),
                            Number::withDouble(1)};
  for (const NumberRef& one : ones) {
    for (const NumberRef& other : ones) EXPECT_EQ(*one == *other, one == other);
  }
  EXPECT_TRUE(*Number::withInteger(-7) == *Number::withInteger(-7));
  EXPECT_FALSE(*Number::withInteger(-7) == *Number::withInteger(7));
}

TEST(Number, HoldsTheWholeRangeOfItsKind) {
  const auto smallest = std::numeric_limits<std::int64_t>::min();
  const auto largest = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(std::get<std::int64_t>(Number::withInteger(smallest)->value()), smallest);
  EXPECT_EQ(std::get<std::uint64_t>(Number::withUnsigned(largest)->value()), largest);
}

TEST(Number, ReadsAsTheNearestDouble) {
  EXPECT_EQ(Number::withBool(false)->toDouble(), 0.0);
  EXPECT_EQ(Number::withBool(true)->toDouble(), 1.0);
  EXPECT_EQ(Number::withInteger(-3)->toDouble(), -3.0);
  EXPECT_EQ(Number::withUnsigned(std::numeric_limits<std::uint64_t>::max())->toDouble(), 0x1p64);
  EXPECT_EQ(Number::withDouble(0.25)->toDouble(), 0.25);
}

}  // namespace
}  // namespace wifi_profile
