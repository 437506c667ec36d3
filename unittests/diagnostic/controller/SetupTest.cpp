// Set-up: a clean state, the configurations, and what automation is told.

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;

using ControllerSetup = DiagnosticFixture;

TEST_F(ControllerSetup, KeepsTheInputs) {
  const auto inputs = makeInputs(nullptr);
  setUpController(inputs);
  EXPECT_EQ(controller->inputs(), inputs);
}

TEST_F(ControllerSetup, BuildsTheConfigurationsFromTheInputs) {
  const auto inputs = makeInputs(makeText("Home"));
  setUpController(inputs);
  const DictionaryRef current = controller->currentNetworkConfiguration();
  EXPECT_THAT(keysOf(current), ElementsAre("MaxScanCacheAge"));
  EXPECT_THAT(current->objectForKey("MaxScanCacheAge"), isTheVery(inputs->maxScanCacheAge()));
  const DictionaryRef fresh = controller->freshScanConfiguration();
  EXPECT_THAT(keysOf(fresh), ElementsAre("MaxScanCacheAge"));
  EXPECT_THAT(fresh->objectForKey("MaxScanCacheAge"), isInteger(0));
  EXPECT_EQ(controller->configuration(), nullptr);
}

TEST_F(ControllerSetup, MakesThreeEmptyFindings) {
  setUpController(makeInputs(nullptr));
  const MutableDictionaryRef first = controller->deviceData();
  const MutableDictionaryRef second = controller->currentNetworkData();
  const MutableDictionaryRef third = controller->selectedNetworkData();
  EXPECT_TRUE(first != second && second != third && first != third);
  for (const auto& findings : {first, second, third}) {
    ASSERT_TRUE(findings);
    EXPECT_TRUE(findings->entries().empty());
  }
}

TEST_F(ControllerSetup, ResetsCountersAndFlagsButNotTheTotal) {
  setUpController(makeInputs(nullptr));
  controller->completedTests.set(7);
  controller->totalTests.set(40);
  controller->refreshEnabled.set(true);
  controller->progressScreenVisible.set(true);
  controller->scanFinished.set(true);
  const MutableDictionaryRef oldFindings = controller->deviceData();
  controller->setupWithInputs(makeInputs(nullptr), nullptr);
  EXPECT_EQ(controller->completedTests(), 0);
  EXPECT_EQ(controller->totalTests(), 40);
  EXPECT_FALSE(controller->refreshEnabled());
  EXPECT_FALSE(controller->progressScreenVisible());
  EXPECT_FALSE(controller->scanFinished());
  EXPECT_NE(controller->deviceData(), oldFindings);
}

TEST_F(ControllerSetup, TellsAutomationNothingUnlessItIsEnabled) {
  setUpController(makeInputs(nullptr));
  EXPECT_TRUE(automation->posted.empty());
}

TEST_F(ControllerSetup, TellsAutomationTheVeryParametersAndTwoEmptyDictionaries) {
  automation->enabled = true;
  const auto inputs = makeInputs(makeText("Home"));
  setUpController(inputs);
  ASSERT_EQ(automation->posted.size(), 1U);
  const DictionaryRef posted = automation->posted.front();
  EXPECT_THAT(keysOf(posted), ElementsAre("parameters", "predicates", "specifications"));
  EXPECT_THAT(posted->objectForKey("parameters"), isTheVery(inputs->parameters()));
  for (const char* key : {"predicates", "specifications"}) {
    const auto dictionary = as<Dictionary>(posted->objectForKey(key));
    ASSERT_TRUE(dictionary) << key;
    EXPECT_TRUE(dictionary->entries().empty()) << key;
  }
}

TEST_F(ControllerSetup, TellsAutomationAfterTheStateIsReset) {
  setUpController(makeInputs(nullptr));
  controller->completedTests.set(7);
  controller->deviceData.set(nullptr);
  automation->enabled = true;
  int posts = 0;
  automation->whenPosted = [&] {
    ++posts;
    EXPECT_EQ(controller->completedTests(), 0);
    EXPECT_NE(controller->deviceData(), nullptr);
    EXPECT_NE(controller->selectedNetworkData(), nullptr);
  };
  controller->setupWithInputs(makeInputs(nullptr), nullptr);
  EXPECT_EQ(posts, 1);
}

TEST_F(ControllerSetup, AsksNothingOfTheServices) {
  setUpController(makeInputs(nullptr));
  queues->runUntilIdle();
  EXPECT_TRUE(events->all().empty());
  EXPECT_TRUE(service->requests().empty());
}

}  // namespace
}  // namespace wifi_profile
