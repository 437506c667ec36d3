// The choice of a network: from the list, or by a typed name.

#include "support/Matchers.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Selection : public PickerFixture {
 protected:
  void SetUp() override { nextScanHears({"Home", "Cafe", "Lab", "Zoo"}); }

  void showJoinedToHome() {
    joinTo("Home");
    showPicker();
  }
  void showJoinedToNothing() {
    joinNothing();
    showPicker();
  }
  std::string previousName() const {
    const TextRef name = controller->previousSelectedNetworkName();
    return name ? name->string() : "-";
  }
};

TEST_F(Selection, FirstGainsItsRowLosesTheNetworksRowAndEnablesTheButton) {
  showJoinedToNothing();
  EXPECT_FALSE(next()->isEnabled());
  tapRow(2);
  EXPECT_THAT(screen->told, ElementsAre("begin", "begin", "insert [0,0]", "end", "button on",
                                        "begin", "delete [1,2]", "end", "end",  //
                                        "begin", "end", "scroll [0,0]", "deselect [1,2]"));
  EXPECT_THAT(selectedRows(), ElementsAre("Lab"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Home", "Zoo", "OTHER"));
  EXPECT_EQ(previousName(), "-");
  EXPECT_TRUE(next()->isEnabled());
}

TEST_F(Selection, LaterSwapsTheNamesAndSortsTheEarlierNetworkIn) {
  showJoinedToNothing();
  tapRow(2);
  screen->told.clear();
  tapRow(0);
  EXPECT_THAT(screen->told, ElementsAre("begin", "begin", "delete [0,0]", "insert [0,0]", "end",
                                        "begin", "delete [1,0]", "end", "end",           //
                                        "begin", "begin", "insert [1,1]", "end", "end",  //
                                        "scroll [0,0]", "deselect [1,0]"));
  EXPECT_THAT(selectedRows(), ElementsAre("Cafe"));
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Lab", "Zoo", "OTHER"));
  EXPECT_EQ(previousName(), "Lab");
}

TEST_F(Selection, OfAnotherNetworkPutsTheJoinedOneIntoTheList) {
  showJoinedToHome();
  tapRow(0);
  EXPECT_THAT(selectedRows(), ElementsAre("Cafe"));
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Lab", "Zoo", "OTHER"));
  EXPECT_EQ(previousName(), "Home");
}

TEST_F(Selection, LeavesTheButtonAsItIsWhenThereWasOneBefore) {
  showJoinedToHome();
  controller->enableRightBarButtonItem(false);
  tapRow(0);
  EXPECT_FALSE(next()->isEnabled());
}

TEST_F(Selection, KeepsListAndDictionaryTogether) {
  showJoinedToHome();
  for (const std::int64_t row : {2, 0, 1}) {
    tapRow(row);
    EXPECT_EQ(controller->filteredNetworks()->networks().size(), 3U);
    for (const auto& network : *controller->filteredWiFiScanResults()) {
      EXPECT_EQ(controller->filteredNetworks()->networkNamed(network->ssidString()), network);
    }
  }
  EXPECT_EQ(std::count_if(screen->told.begin(), screen->told.end(),
                          [](const auto& told) { return told.starts_with("repaired"); }),
            0);
}

// --- The prompt

TEST_F(Selection, OpensThePromptForAnotherNetworkWithoutScrolling) {
  showJoinedToHome();
  tapOther();
  const auto alert = controller->presentedAlert();
  ASSERT_NE(alert, nullptr);
  EXPECT_EQ(alert->message(), "OTHER_NETWORK_MESSAGE");
  ASSERT_EQ(alert->textFields().size(), 1U);
  EXPECT_EQ(alert->textFields().front()->placeholder, "OTHER_NETWORK_PLACEHOLDER");
  EXPECT_EQ(alert->textFields().front()->text, "");
  ASSERT_EQ(alert->actions().size(), 2U);
  const auto& [cancel, done] = std::tie(alert->actions()[0], alert->actions()[1]);
  EXPECT_EQ(cancel->title(), "CANCEL");
  EXPECT_EQ(static_cast<int>(cancel->style()), 1);
  EXPECT_TRUE(cancel->isEnabled());
  EXPECT_EQ(done->title(), "DONE");
  EXPECT_EQ(static_cast<int>(done->style()), 0);
  EXPECT_FALSE(done->isEnabled());
  EXPECT_THAT(screen->told, ElementsAre("alert OTHER_NETWORK_MESSAGE", "deselect [1,3]"));
}

TEST_F(Selection, IsConfirmedOnlyWhileTheFieldHoldsText) {
  showJoinedToHome();
  tapOther();
  const auto alert = controller->presentedAlert();
  const auto done = alert->actions().back();
  for (const auto& [text, enabled] :
       {std::pair{"L", true}, {"", false}, {" ", true}, {"\n", true}, {"", false}}) {
    alert->type(text);
    EXPECT_EQ(done->isEnabled(), enabled) << '"' << text << '"';
  }
}

TEST_F(Selection, IsNotConfirmedWhereNoPromptIsOpen) {
  showJoinedToHome();
  controller->textFieldAlertDidChange(nullptr);
  controller->presentWiFiPoweredOffAlert();  // has no field
  controller->textFieldAlertDidChange(nullptr);
  EXPECT_TRUE(controller->presentedAlert()->actions().back()->isEnabled());
}

TEST_F(Selection, IsLeftAloneByCancel) {
  showJoinedToHome();
  tapOther();
  controller->presentedAlert()->type("Lab");
  screen->told.clear();
  tapAction("CANCEL");
  EXPECT_EQ(controller->presentedAlert(), nullptr);
  EXPECT_THAT(screen->told, ElementsAre("alert action CANCEL"));
  EXPECT_EQ(selectedName(), "Home");
  EXPECT_EQ(previousName(), "-");
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Lab", "Zoo", "OTHER"));
}

TEST_F(Selection, ByTheTypedNameOfAListedNetworkDoesWhatATapOnItDoes) {
  showJoinedToHome();
  typeAnother("Lab");
  EXPECT_THAT(screen->told,
              ElementsAre("alert OTHER_NETWORK_MESSAGE", "deselect [1,3]", "alert text Lab",
                          "alert action DONE", "begin", "begin", "delete [0,0]", "insert [0,0]",
                          "end", "begin", "delete [1,1]", "end", "end",  //
                          "begin", "begin", "insert [1,1]", "end", "end", "scroll [0,0]"));
  EXPECT_THAT(selectedRows(), ElementsAre("Lab"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Home", "Zoo", "OTHER"));
}

TEST_F(Selection, ByATypedNameThatIsNotHeardTakesNothingOutOfTheList) {
  showJoinedToHome();
  typeAnother("Elsewhere");
  EXPECT_THAT(selectedRows(), ElementsAre("Elsewhere"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Home", "Lab", "Zoo", "OTHER"));
  EXPECT_EQ(previousName(), "Home");
}

TEST_F(Selection, AfterATypedNameThatIsNotHeardBringsNothingBack) {
  showJoinedToHome();
  typeAnother("Elsewhere");
  screen->told.clear();
  tapRow(0);
  EXPECT_THAT(selectedRows(), ElementsAre("Cafe"));
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Lab", "Zoo", "OTHER"));
  EXPECT_EQ(previousName(), "Elsewhere");
  EXPECT_THAT(screen->told, ElementsAre("begin", "begin", "delete [0,0]", "insert [0,0]", "end",
                                        "begin", "delete [1,0]", "end", "end", "begin", "end",
                                        "scroll [0,0]", "deselect [1,0]"));
}

TEST_F(Selection, OfTheTypedJoinedNetworkAndThenAnotherListsTheJoinedOne) {
  joinTo("Home");
  showPicker(makeText("Elsewhere"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Lab", "Zoo", "OTHER"));
  typeAnother("Home");
  EXPECT_THAT(selectedRows(), ElementsAre("Home"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Lab", "Zoo", "OTHER"));
  tapRow(2);
  EXPECT_THAT(selectedRows(), ElementsAre("Zoo"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Home", "Lab", "OTHER"));
}

TEST_F(Selection, ByTheTypedNameThatIsSelectedDoesNothingButScroll) {
  showJoinedToHome();
  tapRow(0);
  screen->told.clear();
  typeAnother("Cafe");
  EXPECT_THAT(screen->told, ElementsAre("alert OTHER_NETWORK_MESSAGE", "deselect [1,3]",
                                        "alert text Cafe", "alert action DONE", "scroll [0,0]"));
  EXPECT_EQ(previousName(), "Home");
}

TEST_F(Selection, TakesATypedNameExactlyAsItIs) {
  showJoinedToHome();
  for (const char* const name : {"home", " Home", "Home ", " "}) {
    typeAnother(name);
    EXPECT_EQ(selectedName(), name);
  }
  EXPECT_EQ(previousName(), "Home ");
}

TEST_F(Selection, ByATypedNameMayBeTheFirst) {
  showJoinedToNothing();
  EXPECT_THAT(selectedRows(), IsEmpty());
  typeAnother("Elsewhere");
  EXPECT_TRUE(next()->isEnabled());
  EXPECT_THAT(selectedRows(), ElementsAre("Elsewhere"));
  EXPECT_EQ(networkRows().size(), 5U);
}

TEST_F(Selection, PromptDoesNotOutliveTheController) {
  showJoinedToHome();
  tapOther();
  controller->presentedAlert()->type("Lab");
  const std::weak_ptr<WiFiProfileViewController> watched = controller;
  const std::weak_ptr<toolkit::Alert> prompt = controller->presentedAlert();
  controller->teardown();
  controller.reset();
  EXPECT_TRUE(watched.expired());
  EXPECT_TRUE(prompt.expired());
}

}  // namespace
}  // namespace wifi_profile
