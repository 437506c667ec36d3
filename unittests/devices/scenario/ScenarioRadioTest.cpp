#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "devices/scenario/ScenarioRadio.h"
#include "diagnostic/platform/Trace.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile::scenario {
namespace {

class Names final : public Trace {
 public:
  void event(std::string_view name, const Fields& /*fields*/) override { all.emplace_back(name); }
  std::vector<std::string> all;
};

class ScenarioRadioTest : public ::testing::Test {
 protected:
  void make(const DeviceSettings& settings) { radio = std::make_shared<ScenarioRadio>(settings); }
  // A client with a callback on the first device that counts the notifications.
  void listen() {
    manager = radio->createClient(0);
    const auto devices = radio->copyDevices(manager);
    device = radio->deviceAt(devices, 0);
    radio->retain(device);
    radio->registerPowerCallback(
        device,
        [](WiFiDeviceClientRef, const std::shared_ptr<void>& context) {
          ++*static_cast<int*>(context.get());
        },
        notifications);
    radio->release(devices);
  }

  std::shared_ptr<Names> trace = std::make_shared<Names>();
  runtime::VirtualTimeRunLoop loop;
  std::optional<InstalledPlatform> platform{std::in_place,
                                            Platform{.queues = &loop, .trace = trace.get()}};
  std::shared_ptr<ScenarioRadio> radio;
  WiFiManagerClientRef manager = nullptr;
  WiFiDeviceClientRef device = nullptr;
  std::shared_ptr<int> notifications = std::make_shared<int>(0);
};

TEST_F(ScenarioRadioTest, GivesNoClientWhereTheScenarioHasNone) {
  make({.manager = false});
  EXPECT_EQ(radio->createClient(0), nullptr);
}

TEST_F(ScenarioRadioTest, ListsEveryInterface) {
  make({.interfaces = {"wlan0", "wlan1"}});
  const auto devices = radio->copyDevices(radio->createClient(0));
  EXPECT_EQ(radio->deviceCount(devices), 2U);
  EXPECT_NE(radio->deviceAt(devices, 0), radio->deviceAt(devices, 1));
  radio->release(devices);
}

TEST_F(ScenarioRadioTest, NotifiesOfASwitchFromOutsideOnTheMainQueue) {
  make({.power = true});
  listen();
  radio->switchFromOutside(false);
  EXPECT_EQ(*notifications, 0);
  loop.runUntilIdle();
  EXPECT_EQ(*notifications, 1);
  EXPECT_EQ(radio->getPower(manager), 0);
  radio->switchFromOutside(false);  // no change, and news all the same
  loop.runUntilIdle();
  EXPECT_EQ(*notifications, 2);
}

TEST_F(ScenarioRadioTest, SwitchesOnWhenAskedUnlessTheScenarioSaysOtherwise) {
  make({.power = false});
  listen();
  radio->setPower(manager, 1);
  loop.runUntilIdle();
  EXPECT_EQ(*notifications, 1);
  EXPECT_EQ(radio->getPower(manager), 1);

  *notifications = 0;
  make({.power = false, .powerOnSucceeds = false});
  listen();
  EXPECT_EQ(radio->powerOnFailure(), "");
  radio->setPower(manager, 1);
  loop.runUntilIdle();
  EXPECT_EQ(*notifications, 0);
  EXPECT_EQ(radio->getPower(manager), 0);
  EXPECT_NE(radio->powerOnFailure(), "");
}

TEST_F(ScenarioRadioTest, TellsNobodyAfterTheReleases) {
  make({});
  listen();
  radio->release(device);
  radio->switchFromOutside(false);
  loop.runUntilIdle();
  EXPECT_EQ(*notifications, 0);

  make({});
  listen();
  radio->release(manager);
  radio->switchFromOutside(false);
  loop.runUntilIdle();
  EXPECT_EQ(*notifications, 0);
}

TEST_F(ScenarioRadioTest, NeedsNoQueuesWhereNobodyListens) {
  make({});
  listen();
  radio->release(device);
  radio->release(manager);
  platform.reset();
  radio->switchFromOutside(false);
  EXPECT_EQ(*notifications, 0);
}

TEST_F(ScenarioRadioTest, HandlesThatWereReleasedDoNothing) {
  make({.power = false});
  listen();
  const auto devices = radio->copyDevices(manager);
  radio->release(devices);
  EXPECT_EQ(radio->deviceCount(devices), 0U);
  EXPECT_EQ(radio->deviceAt(devices, 0), nullptr);
  radio->release(devices);
  radio->release(manager);
  radio->setPower(manager, 1);
  EXPECT_EQ(radio->getPower(radio->createClient(0)), 0);
}

TEST_F(ScenarioRadioTest, TellsNobodyWhoIsGone) {
  make({});
  listen();
  notifications.reset();
  radio->switchFromOutside(false);
  loop.runUntilIdle();
  EXPECT_EQ(std::count(trace->all.begin(), trace->all.end(), "device.power"), 0);
}

TEST_F(ScenarioRadioTest, WritesEveryOperationIntoTheTrace) {
  make({});
  radio->containsRadio();
  listen();
  radio->getPower(manager);
  radio->release(manager);
  radio->release(device);
  const std::vector<std::string> expected{"manager.containsRadio",
                                          "manager.create",
                                          "manager.copyDevices",
                                          "device.retain",
                                          "device.registerPowerCallback",
                                          "devices.release",
                                          "manager.getPower",
                                          "manager.release",
                                          "device.release"};
  EXPECT_EQ(trace->all, expected);
}

}  // namespace
}  // namespace wifi_profile::scenario
