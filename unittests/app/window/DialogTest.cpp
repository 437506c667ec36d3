// The questions over the pages: the prompt for a name, the radio's power, and whether to stop.

#include <QInputMethodEvent>
#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/AccessibleTree.h"
#include "app/window/PageFixture.h"

namespace wifi_profile::testing {
namespace {

class Dialog : public PageFixture {
 protected:
  void typeKeys(const QString& text) {
    for (const QChar letter : text) {
      QTest::sendKeyEvent(QTest::Click, &window(), Qt::Key_unknown, QString(letter), {});
    }
  }
  QQuickItem* focus() { return window().activeFocusItem(); }
  // The title of the button that has the focus.
  QString focusedTitle() { return focus() ? focus()->property("text").toString() : QString(); }
  // The item of the dialog that holds a button of it.
  QQuickItem* frameOf(QQuickItem& button) {
    QQuickItem* frame = &button;
    while (frame && !isOfType(*frame, "QQuickPopupItem")) frame = frame->parentItem();
    return frame;
  }
  void expectTabStaysIn(const QQuickItem& frame) {
    std::set<QQuickItem*> reached;
    for (int tabs = 0; tabs < 8; ++tabs) {
      key(tabs < 4 ? Qt::Key_Tab : Qt::Key_Backtab, tabs < 4 ? Qt::NoModifier : Qt::ShiftModifier);
      ASSERT_NE(focus(), nullptr);
      EXPECT_TRUE(isInside(*focus(), frame)) << focus()->metaObject()->className();
      reached.insert(focus());
    }
    EXPECT_GE(reached.size(), 2U);
  }
};

class Prompt : public Dialog {
 protected:
  void SetUp() override {
    showList({"Alpha", "Beta"});
    press("row1.2");
    settle();
    ASSERT_NE(item("alertField"), nullptr);
  }
  bool isThere() { return !model().alertMessage().isEmpty(); }
  bool canBeDone() { return item("alertButton1")->isEnabled(); }
};

TEST_F(Prompt, HasTheFocusInItsField) {
  EXPECT_EQ(focus(), item("alertField"));
  EXPECT_EQ(item("alertMessage")->property("text"), words("OTHER_NETWORK_MESSAGE"));
  EXPECT_EQ(item("alertField")->property("placeholderText"), words("OTHER_NETWORK_PLACEHOLDER"));
}

TEST_F(Prompt, CanBeDoneWhileSomethingIsInTheField) {
  EXPECT_FALSE(canBeDone());
  typeKeys("Lab");
  rest();
  EXPECT_TRUE(canBeDone());
  for (int letter = 0; letter < 3; ++letter) key(Qt::Key_Backspace);
  rest();
  EXPECT_FALSE(canBeDone());
}

TEST_F(Prompt, IsDoneByEnterOnceItCanBe) {
  key(Qt::Key_Return);
  rest();
  EXPECT_TRUE(isThere());
  typeKeys("Lab");
  rest();
  key(Qt::Key_Return);
  settle();
  EXPECT_FALSE(isThere());
  EXPECT_EQ(selectedName(), "Lab");
}

TEST_F(Prompt, TakesAnyLettersAndShowsThemAsTheyAre) {
  QInputMethodEvent event;
  event.setCommitString(QStringLiteral("<b>Büro 東京 🙂</b>"));
  QCoreApplication::sendEvent(focus(), &event);
  rest();
  EXPECT_EQ(item("alertField")->property("text").toString(),
            QStringLiteral("<b>Büro 東京 🙂</b>"));
  key(Qt::Key_Return);
  settle();
  EXPECT_EQ(selectedName(), "<b>Büro 東京 🙂</b>");
}

TEST_F(Prompt, IsCancelledByEscape) {
  typeKeys("Lab");
  key(Qt::Key_Escape);
  settle();
  EXPECT_FALSE(isThere());
  EXPECT_EQ(item("alertField"), nullptr);
  EXPECT_EQ(selectedName(), "-");
}

TEST_F(Prompt, IsEmptyWhenItComesAgain) {
  typeKeys("Lab");
  key(Qt::Key_Escape);
  settle();
  press("row1.2");
  settle();
  EXPECT_EQ(item("alertField")->property("text"), "");
  EXPECT_FALSE(canBeDone());
}

TEST_F(Prompt, KeepsTheFocusInside) {
  typeKeys("Lab");
  rest();
  expectTabStaysIn(*frameOf(*item("alertButton0")));
}

TEST_F(Prompt, LetsNothingUnderItBePressed) {
  QSignalSpy notices(&model(), &window::WindowModel::noticed);
  QTest::mouseClick(&window(), Qt::LeftButton, {}, placeOfItem("row1.0").center().toPoint());
  press("row1.0", HandKind::touch);
  pressAccessibly(*item("row1.0"));
  pressAccessibly(*item("barButton"));
  key(Qt::Key_F5);
  key(Qt::Key_Return, Qt::ControlModifier);
  settle();
  EXPECT_TRUE(isThere());
  EXPECT_EQ(selectedName(), "-");
  EXPECT_FALSE(controller->refreshControl()->isRefreshing());
  EXPECT_EQ(service->requests().size(), 1U);
  EXPECT_TRUE(notices.isEmpty());
}

TEST_F(Prompt, GivesTheFocusBackToTheList) {
  key(Qt::Key_Escape);
  settle();
  EXPECT_TRUE(item("networkList")->hasActiveFocus());
  key(Qt::Key_Home);
  key(Qt::Key_Return);
  settle();
  EXPECT_EQ(selectedName(), "Alpha");
}

TEST_F(Prompt, HasTheFocusAgainAfterTheQuestionWhetherToStop) {
  typeKeys("La");
  window().close();
  rest();
  ASSERT_TRUE(model().asksToStop());
  EXPECT_EQ(focusedTitle(), words("STOP"));
  key(Qt::Key_Escape);
  rest();
  EXPECT_FALSE(model().asksToStop());
  ASSERT_TRUE(isThere());
  EXPECT_EQ(focus(), item("alertField"));
  typeKeys("b");
  EXPECT_EQ(item("alertField")->property("text"), "Lab");
}

TEST_F(Prompt, StandsInTheWindowAtEverySize) {
  for (const QSize size : {QSize(240, 320), QSize(360, 640), QSize(1200, 800)}) {
    resize(size);
    rest();
    const QRectF inside({0, 0}, QSizeF(size));
    for (const char* const name : {"alertMessage", "alertField", "alertButton0", "alertButton1"}) {
      EXPECT_TRUE(inside.contains(placeOfItem(name))) << name << " at " << size.width();
    }
  }
}

class PowerQuestionDialog : public Dialog {
 protected:
  void SetUp() override {
    wifiManager->power = 0;
    startList();
    settle();
    ASSERT_EQ(model().alertMessage(), words("POWER_ON_WIFI"));
  }
};

TEST_F(PowerQuestionDialog, IsAnsweredWithNoOrYes) {
  EXPECT_EQ(item("alertField"), nullptr);
  EXPECT_EQ(item("alertButton0")->property("text"), words("NO"));
  EXPECT_EQ(item("alertButton1")->property("text"), words("YES"));
  press("alertButton0");
  settle();
  ASSERT_EQ(host->statusCodes.size(), 1U);
  EXPECT_EQ(host->statusCodes.front()->toDouble(), -4);
}

TEST_F(PowerQuestionDialog, IsAnsweredByKeys) {
  EXPECT_EQ(focusedTitle(), words("YES"));
  key(Qt::Key_Left);
  EXPECT_EQ(focusedTitle(), words("NO"));
  key(Qt::Key_Right);
  events->clear();
  key(Qt::Key_Return);
  settle();
  EXPECT_THAT(events->all(), ::testing::ElementsAre("set power 1 manager"));
}

// Neither answer is one of cancelling.
TEST_F(PowerQuestionDialog, IsNotAnsweredByEscape) {
  key(Qt::Key_Escape);
  settle();
  EXPECT_EQ(model().alertMessage(), words("POWER_ON_WIFI"));
  EXPECT_TRUE(host->statusCodes.empty());
}

TEST_F(PowerQuestionDialog, KeepsTheFocusInside) {
  expectTabStaysIn(*frameOf(*item("alertButton0")));
}

TEST_F(PowerQuestionDialog, GoesWhenTheListDoes) {
  controller->disappear();
  rest();
  EXPECT_EQ(item("alertButton0"), nullptr);
}

}  // namespace
}  // namespace wifi_profile::testing
