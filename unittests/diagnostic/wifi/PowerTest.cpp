// Bringing up the Wi-Fi manager, and what its power notifications do.

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WiFiSetup : public DiagnosticFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr, true)); }

  void expectEnd(std::int64_t status) {
    ASSERT_EQ(host->statusCodes.size(), 1U);
    EXPECT_THAT(host->statusCodes.front(), isInteger(status));
    ASSERT_EQ(host->data.size(), 1U);
    for (const auto& [key, section] : host->data.front()->entries()) {
      EXPECT_TRUE(as<Dictionary>(section)->entries().empty()) << key;
    }
    EXPECT_EQ(host->finishedAt.size(), 1U);
  }

  static constexpr const char* kNoManager =
      "WiFiManagerClientCreate failed - unable to get Wi-Fi manager handle.";
  static constexpr const char* kNoDevice = "[ERROR] - Couldn't find a Wi-Fi device.";
};

TEST_F(WiFiSetup, TakesTheStepsInOrder) {
  EXPECT_TRUE(controller->setupWiFi());
  EXPECT_THAT(events->all(),
              ElementsAre("contains radio", "create client of type 0", "schedule manager",
                          "set type 0 manager", "copy devices manager", "retain device",
                          "get power manager", "register device", "release list"));
  EXPECT_THAT(log->lines(), IsEmpty());
}

TEST_F(WiFiSetup, OwnsOneReferenceOfEachHandleUntilTheCleanUp) {
  EXPECT_TRUE(controller->setupWiFi());
  EXPECT_EQ(controller->manager(), wifiManager->manager());
  EXPECT_EQ(controller->device(), wifiManager->device(0));
  EXPECT_EQ(wifiManager->references(wifiManager->manager()), 1);
  EXPECT_EQ(wifiManager->references(wifiManager->device(0)), 1);
  EXPECT_EQ(wifiManager->references(wifiManager->list()), 0);
  controller->cleanUp();
  controller->cleanUp();
  EXPECT_EQ(wifiManager->references(wifiManager->manager()), 0);
  EXPECT_EQ(wifiManager->references(wifiManager->device(0)), 0);
}

TEST_F(WiFiSetup, ReadsThePowerAsOnUnlessItIsZero) {
  for (const auto& [power, on] : {std::pair{0, false}, {1, true}, {2, true}, {-1, true}}) {
    wifiManager->power = power;
    EXPECT_TRUE(controller->setupWiFi());
    EXPECT_EQ(controller->wifiPoweredOn(), on) << power;
    controller->cleanUp();
  }
}

TEST_F(WiFiSetup, UsesTheFirstOfSeveralDevicesOnly) {
  wifiManager->devices = 2;
  EXPECT_TRUE(controller->setupWiFi());
  EXPECT_EQ(controller->device(), wifiManager->device(0));
  EXPECT_EQ(wifiManager->registeredDevice, wifiManager->device(0));
  EXPECT_EQ(wifiManager->references(wifiManager->device(1)), 0);
}

TEST_F(WiFiSetup, EndsWithMinusTwoWithoutARadioAndTriesToCreateNothing) {
  wifiManager->radio = 0;
  EXPECT_FALSE(controller->setupWiFi());
  expectEnd(-2);
  EXPECT_EQ(log->lines(), (std::vector<RecordingLog::Line>{{0, LogLevel::error, kNoManager}}));
  EXPECT_THAT(events->all(), ElementsAre("contains radio", "cancel all requests", "status code",
                                         "data", "finished"));
}

TEST_F(WiFiSetup, EndsWithMinusTwoWithoutAClient) {
  wifiManager->makesClients = false;
  EXPECT_FALSE(controller->setupWiFi());
  expectEnd(-2);
  EXPECT_EQ(log->lines(), (std::vector<RecordingLog::Line>{{0, LogLevel::error, kNoManager}}));
  EXPECT_EQ(controller->manager(), nullptr);
}

TEST_F(WiFiSetup, EndsWithMinusThreeWithoutADevice) {
  for (const bool makesLists : {false, true}) {
    SCOPED_TRACE(makesLists ? "empty list" : "no list");
    setUpController(makeInputs(nullptr, true));
    host->statusCodes.clear();
    host->data.clear();
    host->finishedAt.clear();
    log->clear();
    wifiManager->makesLists = makesLists;
    wifiManager->devices = 0;
    EXPECT_FALSE(controller->setupWiFi());
    expectEnd(-3);
    EXPECT_EQ(log->lines(), (std::vector<RecordingLog::Line>{{0, LogLevel::error, kNoDevice}}));
    EXPECT_EQ(controller->manager(), nullptr);
    EXPECT_EQ(controller->device(), nullptr);
  }
}

TEST_F(WiFiSetup, ReleasesTheManagerOnceWhenThereIsNoDevice) {
  wifiManager->devices = 0;
  wifiManager->makesLists = false;
  EXPECT_FALSE(controller->setupWiFi());
  controller->teardown();
  EXPECT_EQ(wifiManager->references(wifiManager->manager()), 0);
  EXPECT_THAT(
      events->all(),
      ElementsAre("contains radio", "create client of type 0", "schedule manager",
                  "set type 0 manager", "copy devices manager", "release manager",
                  "cancel all requests", "status code", "data", "finished", "cancel all requests"));
}

TEST_F(WiFiSetup, ReleasesAnEmptyDeviceListLastOfAll) {
  wifiManager->devices = 0;
  EXPECT_FALSE(controller->setupWiFi());
  EXPECT_EQ(wifiManager->references(wifiManager->list()), 0);
  EXPECT_EQ(wifiManager->references(wifiManager->manager()), 0);
  EXPECT_THAT(
      events->all(),
      ElementsAre("contains radio", "create client of type 0", "schedule manager",
                  "set type 0 manager", "copy devices manager", "release manager",
                  "cancel all requests", "status code", "data", "finished", "release list"));
}

TEST_F(WiFiSetup, FindsTheDeviceAlsoWithTheRadioOff) {
  wifiManager->power = 0;
  EXPECT_TRUE(controller->setupWiFi());
  EXPECT_EQ(controller->device(), wifiManager->device(0));
  EXPECT_FALSE(controller->wifiPoweredOn());
  EXPECT_TRUE(host->statusCodes.empty());
}

TEST_F(WiFiSetup, WritesNoLineWhenErrorsAreNotLogged) {
  log->switchOff(LogLevel::error);
  wifiManager->radio = 0;
  EXPECT_FALSE(controller->setupWiFi());
  EXPECT_THAT(log->lines(), IsEmpty());
  expectEnd(-2);
}

TEST_F(WiFiSetup, EndsTheRunFromStartOnThePickerPathAndRunsNoTest) {
  wifiManager->radio = 0;
  controller->start();
  expectEnd(-2);
  EXPECT_NE(controller->navigationBar(), nullptr);
  queues->runUntilIdle();
  expectEnd(-2);
  EXPECT_TRUE(service->requests().empty());
}

TEST_F(WiFiSetup, EndsWithMinusFiveAtTheNotificationThatTheRadioIsOff) {
  EXPECT_TRUE(controller->setupWiFi());
  events->clear();
  wifiManager->changePower(0);
  EXPECT_FALSE(controller->wifiPoweredOn());
  expectEnd(-5);
  EXPECT_THAT(events->all(),
              ElementsAre("get power manager", "cancel all requests", "release manager",
                          "release device", "status code", "data", "finished"));
}

TEST_F(WiFiSetup, GoesOnAtTheNotificationThatTheRadioIsOn) {
  wifiManager->power = 0;
  EXPECT_TRUE(controller->setupWiFi());
  EXPECT_FALSE(controller->wifiPoweredOn());
  wifiManager->changePower(1);
  EXPECT_TRUE(controller->wifiPoweredOn());
  EXPECT_TRUE(host->statusCodes.empty());
}

}  // namespace
}  // namespace wifi_profile
