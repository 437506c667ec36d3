// The radio's power while the picker is up: the question, its answers, and the notifications.

#include "support/Matchers.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PowerQuestion : public PickerFixture {
 protected:
  void SetUp() override { wifiManager->power = 0; }

  void expectEnd(std::int64_t status) {
    ASSERT_EQ(host->statusCodes.size(), 1U);
    EXPECT_THAT(host->statusCodes.front(), isInteger(status));
    EXPECT_EQ(host->finishedAt.size(), 1U);
  }
};

TEST_F(PowerQuestion, IsAskedInsteadOfScanningWhenTheRadioIsOff) {
  startPicker();
  queues->runUntilIdle();
  EXPECT_THAT(screen->told, ElementsAre("alert POWER_ON_WIFI", "button off"));
  EXPECT_TRUE(service->requests().empty());
  EXPECT_THAT(networkRows(), ElementsAre("OTHER"));
  EXPECT_TRUE(host->statusCodes.empty());
}

TEST_F(PowerQuestion, SaysWLANWhereTheLowestBitOfTheDevicesAnswerSaysSo) {
  for (const auto& [answer, message] : {std::pair{0, "POWER_ON_WIFI"},
                                        {1, "POWER_ON_WLAN"},
                                        {2, "POWER_ON_WIFI"},
                                        {3, "POWER_ON_WLAN"},
                                        {-2, "POWER_ON_WIFI"}}) {
    setUpController(makeInputs(nullptr, true));
    capability->answer = answer;
    capability->asked.clear();
    controller->presentWiFiPoweredOffAlert();
    EXPECT_EQ(controller->presentedAlert()->message(), message) << answer;
    EXPECT_THAT(capability->asked, ElementsAre("wapi"));
    controller->disappear();
  }
}

TEST_F(PowerQuestion, HasNoAndYesInThatOrderAndInTheUsualStyle) {
  startPicker();
  const auto& alert = *controller->presentedAlert();
  ASSERT_EQ(alert.actions().size(), 2U);
  EXPECT_EQ(alert.actions()[0]->title(), "NO");
  EXPECT_EQ(alert.actions()[1]->title(), "YES");
  for (const auto& action : alert.actions()) {
    EXPECT_EQ(static_cast<int>(action->style()), 0);
    EXPECT_TRUE(action->isEnabled());
  }
  EXPECT_THAT(alert.textFields(), IsEmpty());
}

TEST_F(PowerQuestion, EndsWithMinusFourAtNo) {
  startPicker();
  tapAction("NO");
  expectEnd(-4);
  EXPECT_THAT(log->lines(), IsEmpty());
  EXPECT_EQ(wifiManager->references(wifiManager->manager()), 0);
  EXPECT_EQ(wifiManager->references(wifiManager->device(0)), 0);
}

TEST_F(PowerQuestion, OnlyAsksTheManagerAtYes) {
  startPicker();
  events->clear();
  tapAction("YES");
  queues->runUntilIdle();
  EXPECT_THAT(events->all(), ElementsAre("set power 1 manager"));
  EXPECT_FALSE(controller->wifiPoweredOn());
  EXPECT_TRUE(service->requests().empty());
  EXPECT_TRUE(host->statusCodes.empty());
}

TEST_F(PowerQuestion, DoesNothingAtYesWithoutAManager) {
  startPicker();
  const auto alert = controller->presentedAlert();
  controller->cleanUp();
  events->clear();
  tapAction("YES");
  EXPECT_THAT(events->all(), IsEmpty());
  EXPECT_TRUE(host->statusCodes.empty());
}

TEST_F(PowerQuestion, IsFollowedByTheListAtTheNotificationOnly) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe"});
  startPicker();
  tapAction("YES");
  queues->runUntilIdle();
  screen->told.clear();
  wifiManager->changePower(1);
  EXPECT_THAT(screen->told, ElementsAre("spinner start"));
  EXPECT_TRUE(controller->wifiPoweredOn());
  queues->runUntilIdle();
  EXPECT_THAT(selectedRows(), ElementsAre("Home"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "OTHER"));
}

class PowerNotifications : public PowerQuestion {
 protected:
  void SetUp() override {
    joinTo("Home");
    nextScanHears({"Home", "Cafe"});
    showPicker();
  }
};

TEST_F(PowerNotifications, ShowTheListAgainWhenTheRadioIsOn) {
  service->forgetRequests();
  nextScanHears({"Home", "Lab", "Zoo"});
  wifiManager->changePower(1);
  EXPECT_FALSE(controller->scanFinished());
  queues->runUntilIdle();
  EXPECT_THAT(service->requestedNumbers(), ElementsAre(31));
  EXPECT_THAT(screen->told,
              ElementsAre("spinner start", "reload", "spinner start", "button on", "spinner stop",
                          "refresh installed", "begin", "insert [1,0] [1,1]", "end",
                          "repaired 1: 2 - 0 + 2, expected 3"));
  EXPECT_THAT(networkRows(), ElementsAre("Lab", "Zoo", "OTHER"));
  EXPECT_TRUE(host->statusCodes.empty());
}

TEST_F(PowerNotifications, EndTheRunWithMinusFiveWhenTheRadioIsOff) {
  wifiManager->changePower(0);
  expectEnd(-5);
  EXPECT_FALSE(controller->wifiPoweredOn());
  EXPECT_THAT(screen->told, IsEmpty());
  EXPECT_THAT(log->lines(), IsEmpty());
}

TEST_F(PowerNotifications, EndTheRunOnceAlsoDuringAScan) {
  service->whileRunning = [this](const FakeService::Request&) {
    queues->postToMain([this] { wifiManager->changePower(0); });
    queues->waitForMain();
  };
  pull();
  expectEnd(-5);
  EXPECT_TRUE(controller->scanFinished());
}

TEST_F(PowerNotifications, AreDroppedWhenTheControllerIsGone) {
  const std::weak_ptr<WiFiProfileViewController> watch = controller;
  controller.reset();
  ASSERT_TRUE(watch.expired());
  events->clear();
  wifiManager->changePower(0);
  EXPECT_THAT(events->all(), IsEmpty());
  EXPECT_TRUE(host->statusCodes.empty());
}

TEST_F(PowerQuestion, DoesNotOutliveTheController) {
  startPicker();
  queues->runUntilIdle();
  const std::weak_ptr<WiFiProfileViewController> watched = controller;
  const std::weak_ptr<toolkit::Alert> question = controller->presentedAlert();
  controller->teardown();
  controller.reset();
  EXPECT_TRUE(watched.expired());
  EXPECT_TRUE(question.expired());
}

}  // namespace
}  // namespace wifi_profile
