#include <gtest/gtest.h>

#include "diagnostic/controller/RunPlan.h"

namespace wifi_profile {
namespace {

void expectPlan(const TextRef& current, const TextRef& selected, const RunPlan& expected) {
  const RunPlan plan = planRun(current, selected);
  EXPECT_EQ(plan.runCurrentNetwork, expected.runCurrentNetwork);
  EXPECT_EQ(plan.runSelectedNetwork, expected.runSelectedNetwork);
  EXPECT_EQ(plan.totalTests, expected.totalTests);
  EXPECT_EQ(plan.statusCode, expected.statusCode);
}

TEST(RunPlan, TestsTheDeviceAloneWithoutAnyName) {
  expectPlan(nullptr, nullptr, {false, false, 11, 0});
}

TEST(RunPlan, TestsTheJoinedNetwork) {
  expectPlan(makeText("Home"), nullptr, {true, false, 40, 0});
}

TEST(RunPlan, TestsTheSelectedNetworkOfADeviceThatIsNotJoined) {
  expectPlan(nullptr, makeText("Home"), {false, true, 27, 0});
}

TEST(RunPlan, TestsBothNetworksWhenTheyDiffer) {
  expectPlan(makeText("Home"), makeText("Cafe"), {true, true, 56, 0});
}

TEST(RunPlan, DoesNotTestTheJoinedNetworkTwice) {
  expectPlan(makeText("Home"), makeText("Home"), {true, false, 40, 0});
}

TEST(RunPlan, ComparesNamesExactly) {
  expectPlan(makeText("Home"), makeText("home"), {true, true, 56, 0});
  expectPlan(makeText("Home"), makeText("Home "), {true, true, 56, 0});
}

TEST(RunPlan, LeavesOutAJoinedNetworkThatAsksNotToBeSurveyed) {
  expectPlan(makeText("Cafe_nomap"), nullptr, {false, false, 11, -6});
  expectPlan(makeText("Cafe_nomap"), makeText("Home"), {false, true, 27, -6});
}

TEST(RunPlan, LeavesOutASelectedNetworkThatAsksNotToBeSurveyed) {
  expectPlan(nullptr, makeText("lab_nomap"), {false, false, 11, -7});
  expectPlan(makeText("Home"), makeText("lab_nomap"), {true, false, 40, -7});
}

TEST(RunPlan, NamesTheSelectedNetworkWhenBothAreLeftOut) {
  expectPlan(makeText("Cafe_nomap"), makeText("lab_nomap"), {false, false, 11, -7});
  expectPlan(makeText("Cafe_nomap"), makeText("Cafe_nomap"), {false, false, 11, -7});
}

TEST(RunPlan, KnowsTheSuffixInAnyLetterCase) {
  for (const char* name : {"a_NoMap", "a_NOMAP", "a_nOmAp", "_nomap"}) {
    expectPlan(makeText(name), nullptr, {false, false, 11, -6});
    expectPlan(nullptr, makeText(name), {false, false, 11, -7});
  }
}

TEST(RunPlan, LooksForTheSuffixAtTheEndOnly) {
  for (const char* name : {"_nomap_", "a_nomap2", "nomap", "a-nomap", "_nomap ", ""}) {
    expectPlan(makeText(name), nullptr, {true, false, 40, 0});
    expectPlan(nullptr, makeText(name), {false, true, 27, 0});
  }
}

}  // namespace
}  // namespace wifi_profile
