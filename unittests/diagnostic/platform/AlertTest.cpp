// Questions over a screen.

#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/ViewController.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::toolkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Alerts : public DiagnosticFixture {
 protected:
  std::shared_ptr<AlertAction> add(const std::shared_ptr<Alert>& to, const char* title,
                                   std::function<void()> handler) {
    auto action = std::make_shared<AlertAction>(title, ActionStyle::standard, std::move(handler));
    to->addAction(action);
    return action;
  }

  std::shared_ptr<ViewController> owner = std::make_shared<ViewController>();
  std::shared_ptr<Alert> alert = std::make_shared<Alert>("SURE");
  int answers = 0;
  const std::function<void()> count = [this] { ++answers; };
};

TEST_F(Alerts, StandOverTheirControllerUntilAnActionIsTapped) {
  const auto yes = add(alert, "YES", count);
  EXPECT_EQ(owner->presentedAlert(), nullptr);
  owner->present(alert, true);
  EXPECT_EQ(owner->presentedAlert(), alert);
  alert->tap(*yes);
  EXPECT_EQ(owner->presentedAlert(), nullptr);
  EXPECT_EQ(answers, 1);
  EXPECT_THAT(screen->told, ElementsAre("alert SURE", "alert action YES"));
}

TEST_F(Alerts, AreGoneBeforeTheActionIsDoneSoThatItMayPresentAnother) {
  const auto second = std::make_shared<Alert>("REALLY");
  const auto yes = add(alert, "YES", [&] { owner->present(second, true); });
  owner->present(alert, true);
  alert->tap(*yes);
  EXPECT_EQ(owner->presentedAlert(), second);
  EXPECT_THAT(screen->told, ElementsAre("alert SURE", "alert action YES", "alert REALLY"));
}

TEST_F(Alerts, TellTheScreenThatTheyAreGoneBeforeTheActionIsDone) {
  const auto yes = add(alert, "YES", [&] { EXPECT_THAT(screen->dismissed, ElementsAre("SURE")); });
  owner->present(alert, true);
  EXPECT_THAT(screen->dismissed, IsEmpty());
  alert->tap(*yes);
  EXPECT_THAT(screen->dismissed, ElementsAre("SURE"));
}

TEST_F(Alerts, TellTheScreenThatTheyGoWithTheView) {
  owner->present(alert, true);
  owner->present(std::make_shared<Alert>("NEVER SHOWN"), true);
  owner->disappear();
  EXPECT_THAT(screen->dismissed, ElementsAre("SURE"));
}

TEST_F(Alerts, KeepTheirActionsInTheOrderInWhichTheyCame) {
  const auto no = add(alert, "NO", nullptr);
  const auto yes = add(alert, "YES", nullptr);
  EXPECT_THAT(alert->actions(), ElementsAre(no, yes));
  EXPECT_EQ(alert->message(), "SURE");
  EXPECT_EQ(static_cast<int>(yes->style()), 0);
}

TEST_F(Alerts, CanBeAnsweredWithAnActionThatDoesNothing) {
  const auto no = add(alert, "NO", nullptr);
  owner->present(alert, true);
  alert->tap(*no);
  EXPECT_EQ(owner->presentedAlert(), nullptr);
}

TEST_F(Alerts, DoNothingAtATapOnADisabledAction) {
  const auto yes = add(alert, "YES", count);
  yes->setEnabled(false);
  owner->present(alert, true);
  alert->tap(*yes);
  EXPECT_EQ(answers, 0);
  EXPECT_EQ(owner->presentedAlert(), alert);
  EXPECT_THAT(screen->told, ElementsAre("alert SURE"));
  yes->setEnabled(true);
  alert->tap(*yes);
  EXPECT_EQ(answers, 1);
}

TEST_F(Alerts, DoNothingAtATapBeforeTheyArePresentedAndAfterTheyAreDismissed) {
  const auto yes = add(alert, "YES", count);
  alert->tap(*yes);
  EXPECT_EQ(answers, 0);
  owner->present(alert, true);
  alert->tap(*yes);
  alert->tap(*yes);
  EXPECT_EQ(answers, 1);
}

TEST_F(Alerts, AreNotShownWhileAnotherOneIs) {
  const auto second = std::make_shared<Alert>("REALLY");
  const auto yes = add(second, "YES", count);
  owner->present(alert, true);
  owner->present(second, true);
  EXPECT_EQ(owner->presentedAlert(), alert);
  second->tap(*yes);
  EXPECT_EQ(answers, 0);
  EXPECT_THAT(screen->told, ElementsAre("alert SURE"));
}

TEST_F(Alerts, TellTheirFieldsOwnerOfEveryEditAndThenTheScreen) {
  const auto field = std::make_shared<TextField>();
  std::vector<std::string> edits;
  field->onEditingChanged = [&] {
    edits.push_back(field->text);
    screen->told.emplace_back("owner");
  };
  alert->addTextField(field);
  owner->present(alert, true);
  alert->type("La");
  alert->type("");
  EXPECT_THAT(edits, ElementsAre("La", ""));
  EXPECT_THAT(screen->told,
              ElementsAre("alert SURE", "owner", "alert text La", "owner", "alert text "));
}

TEST_F(Alerts, HaveNothingToTypeIntoWithoutAField) {
  owner->present(alert, true);
  alert->type("Lab");
  EXPECT_THAT(screen->told, ElementsAre("alert SURE"));
}

TEST_F(Alerts, AreDismissedUnansweredWhenTheScreenGoes) {
  const auto yes = add(alert, "YES", count);
  owner->present(alert, true);
  owner->disappear();
  owner->disappear();
  EXPECT_EQ(owner->presentedAlert(), nullptr);
  alert->tap(*yes);
  EXPECT_EQ(answers, 0);
  EXPECT_THAT(screen->told, ElementsAre("alert SURE"));
}

TEST_F(Alerts, KeepTheirControllerAliveUntilTheHandlerReturns) {
  const std::weak_ptr<ViewController> watch = owner;
  bool wasAlive = false;
  const auto yes = add(alert, "YES", [&] {
    owner.reset();
    wasAlive = !watch.expired();
  });
  owner->present(alert, true);
  alert->tap(*yes);
  EXPECT_TRUE(wasAlive);
  EXPECT_TRUE(watch.expired());
}

TEST_F(Alerts, DoNothingWithoutTheirController) {
  const auto yes = add(alert, "YES", count);
  owner->present(alert, true);
  owner.reset();
  alert->tap(*yes);
  EXPECT_EQ(answers, 0);
}

TEST_F(Alerts, AreNotKeptWhenAnotherOneIsPresented) {
  const std::weak_ptr<Alert> watch = alert;
  owner->present(std::make_shared<Alert>("FIRST"), true);
  owner->present(alert, true);
  alert.reset();
  EXPECT_TRUE(watch.expired());
}

}  // namespace
}  // namespace wifi_profile::toolkit
