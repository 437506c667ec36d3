// The end of a run: clean-up, record, finish; and what a controller leaves behind.

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;

class ResultRecord : public DiagnosticFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr)); }

  // As a set-up of the Wi-Fi manager would leave them.
  void acquireHandles() {
    controller->manager.set(wifiManager->createClient(0));
    controller->device.set(wifiManager->device(0));
    wifiManager->retain(wifiManager->device(0));
    events->clear();
  }
};

TEST_F(ResultRecord, HoldsTheVeryStatusAndTheThreeLiveSections) {
  const NumberRef status = Number::withInteger(-4);
  controller->endTestWithStatusCode(status);
  EXPECT_THAT(host->statusCodes, ElementsAre(status));
  EXPECT_EQ(controller->result().statusCode(), status);
  ASSERT_EQ(host->data.size(), 1U);
  const DictionaryRef data = host->data.front();
  EXPECT_EQ(controller->result().data(), data);
  EXPECT_THAT(keysOf(data), ElementsAre("currentNetwork", "device", "selectedNetwork"));
  EXPECT_THAT(data->objectForKey("device"), isTheVery(controller->deviceData()));
  EXPECT_THAT(data->objectForKey("currentNetwork"), isTheVery(controller->currentNetworkData()));
  EXPECT_THAT(data->objectForKey("selectedNetwork"), isTheVery(controller->selectedNetworkData()));
}

TEST_F(ResultRecord, KeepsNullPlaceholders) {
  controller->deviceData()->setObject(nullPlaceholder(), "missing");
  controller->endTestWithStatusCode(Number::withInteger(0));
  EXPECT_THAT(as<Dictionary>(host->data.front()->objectForKey("device"))->objectForKey("missing"),
              isNull());
}

TEST_F(ResultRecord, IsThereOnlyAfterTheEnd) {
  EXPECT_EQ(controller->result().statusCode(), nullptr);
  EXPECT_EQ(controller->result().data(), nullptr);
}

TEST_F(ResultRecord, ComesAfterTheCleanUpAndBeforeTheFinish) {
  acquireHandles();
  controller->endTestWithStatusCode(Number::withInteger(0));
  EXPECT_THAT(events->all(), ElementsAre("cancel all requests", "release manager", "release device",
                                         "status code", "data", "finished"));
}

TEST_F(ResultRecord, IsMadeAgainByASecondEnd) {
  acquireHandles();
  controller->endTestWithStatusCode(Number::withInteger(-5));
  events->clear();
  controller->endTestWithStatusCode(Number::withInteger(0));
  EXPECT_THAT(events->all(), ElementsAre("cancel all requests", "status code", "data", "finished"));
  EXPECT_THAT(controller->result().statusCode(), isInteger(0));
}

TEST_F(ResultRecord, IsMadeWithoutAnObserverToo) {
  controller->setObserver(nullptr);
  controller->endTestWithStatusCode(Number::withInteger(-3));
  EXPECT_THAT(controller->result().statusCode(), isInteger(-3));
  EXPECT_THAT(events->all(), ElementsAre("cancel all requests"));
}

TEST_F(ResultRecord, CleanUpForgetsTheHandlesItGivesUp) {
  acquireHandles();
  controller->cleanUp();
  EXPECT_EQ(controller->manager(), nullptr);
  EXPECT_EQ(controller->device(), nullptr);
  EXPECT_EQ(wifiManager->references(wifiManager->manager()), 0);
  EXPECT_EQ(wifiManager->references(wifiManager->device(0)), 0);
}

TEST_F(ResultRecord, CleanUpGivesUpADeviceWithoutAManager) {
  acquireHandles();
  controller->manager.set(nullptr);
  controller->cleanUp();
  EXPECT_THAT(events->all(), ElementsAre("cancel all requests", "release device"));
}

TEST_F(ResultRecord, TeardownAfterTheEndReleasesNothingTwice) {
  acquireHandles();
  controller->endTestWithStatusCode(Number::withInteger(0));
  events->clear();
  controller->teardown();
  EXPECT_THAT(events->all(), ElementsAre("cancel all requests"));
}

TEST_F(ResultRecord, TeardownCleansUpAndTellsTheHostNothing) {
  acquireHandles();
  controller->teardown();
  EXPECT_THAT(events->all(),
              ElementsAre("cancel all requests", "release manager", "release device"));
}

TEST_F(ResultRecord, FinishTellsTheHost) {
  controller->finishTest();
  EXPECT_THAT(events->all(), ElementsAre("finished"));
}

TEST_F(ResultRecord, DestructionReleasesNoHandle) {
  acquireHandles();
  controller.reset();
  EXPECT_TRUE(events->all().empty());
  EXPECT_EQ(wifiManager->references(wifiManager->manager()), 1);
  EXPECT_EQ(wifiManager->references(wifiManager->device(0)), 1);
}

// Sets a property to something that is a T in type only and notes its end.
template <class T>
void watch(Property<std::shared_ptr<T>>& property, const EventsRef& events,
           const std::string& name) {
  const std::shared_ptr<int> watched(new int, [events, name](const int* number) {
    delete number;
    events->add(name);
  });
  property.set(std::shared_ptr<T>(watched, nullptr));
}

TEST(Destruction, ReleasesThePropertiesInReverseOrderOfDeclaration) {
  const auto events = std::make_shared<Events>();
  auto controller = std::make_shared<WiFiProfileViewController>();
  std::vector<std::string> expected;
  const auto add = [&](auto& property, const std::string& name) {
    watch(property, events, name);
    expected.insert(expected.begin(), name);
  };
  add(controller->currentNetworkConfiguration, "currentNetworkConfiguration");
  add(controller->configuration, "configuration");
  add(controller->freshScanConfiguration, "freshScanConfiguration");
  add(controller->deviceData, "deviceData");
  add(controller->currentNetworkData, "currentNetworkData");
  add(controller->selectedNetworkData, "selectedNetworkData");
  add(controller->wifiStatus, "wifiStatus");
  add(controller->currentNetwork, "currentNetwork");
  add(controller->filteredWiFiScanResults, "filteredWiFiScanResults");
  add(controller->previousScanFilteredWiFiScanResults, "previousScanFilteredWiFiScanResults");
  add(controller->distinctNetworks, "distinctNetworks");
  add(controller->filteredNetworks, "filteredNetworks");
  add(controller->previousScanFilteredNetworks, "previousScanFilteredNetworks");
  add(controller->wifiScanResults, "wifiScanResults");
  add(controller->tableView, "tableView");
  add(controller->refreshControl, "refreshControl");
  add(controller->navigationBar, "navigationBar");
  add(controller->navigationItem, "navigationItem");
  add(controller->networksGroupHeaderView, "networksGroupHeaderView");
  add(controller->selectedNetworkHeaderView, "selectedNetworkHeaderView");
  add(controller->blueCheck, "blueCheck");
  add(controller->spacer, "spacer");
  add(controller->mainLabel, "mainLabel");
  add(controller->progressView, "progressView");
  add(controller->previousSelectedNetworkName, "previousSelectedNetworkName");
  add(controller->inputs, "inputs");
  controller.reset();
  EXPECT_EQ(events->all(), expected);
}

}  // namespace
}  // namespace wifi_profile
