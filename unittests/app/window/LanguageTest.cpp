// Every language fits the smallest screen, and Arabic reads from the right.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/PageFixture.h"
#include "app/window/ReportSample.h"

namespace wifi_profile::testing {
namespace {

class Language : public PageFixture, public ::testing::WithParamInterface<const char*> {
 protected:
  Language() : PageFixture(GetParam()) {}

  // Nothing is cut off and nothing stands beyond the window's sides. Names of networks may be cut.
  void expectEverythingFits(const char* page) {
    for (const QQuickItem* const text : shownTexts(window())) {
      const std::string said = text->property("text").toString().toStdString();
      EXPECT_FALSE(text->property("truncated").toBool()) << page << ": " << said;
      EXPECT_GE(placeOf(*text).left(), 0) << page << ": " << said;
      EXPECT_LE(placeOf(*text).right(), window().width()) << page << ": " << said;
    }
    for (const QQuickItem* const button : shownOfType(window(), "FlatButton")) {
      EXPECT_GE(button->width(), button->implicitWidth())
          << page << ": " << button->property("text").toString().toStdString();
    }
  }
};

TEST_P(Language, FitsTheList) {
  joinTo("Home");
  atTheNextRequest({[this] {
    rest();
    expectEverythingFits("scanning");
  }});
  showList({"Alpha", "Beta"});
  expectEverythingFits("list");
  key(Qt::Key_F5);
  rest();
  expectEverythingFits("refreshing");
}

TEST_P(Language, FitsTheEmptyListAndItsNotices) {
  showList({});
  key(Qt::Key_Return, Qt::ControlModifier);
  rest();
  expectEverythingFits("empty");
}

TEST_P(Language, FitsThePromptAndTheQuestionWhetherToStop) {
  showList({"Alpha"});
  press("row1.1");
  settle();
  expectEverythingFits("prompt");
  key(Qt::Key_Escape);
  settle();
  window().close();
  rest();
  expectEverythingFits("stop");
}

TEST_P(Language, FitsTheQuestionAboutPower) {
  wifiManager->power = 0;
  for (const int wording : {0, 1}) {
    capability->answer = wording;
    startList();
    settle();
    EXPECT_EQ(model().alertMessage(), words(wording == 0 ? "POWER_ON_WIFI" : "POWER_ON_WLAN"));
    expectEverythingFits("power");
    controller->disappear();
  }
}

TEST_P(Language, FitsTheTestsUnderWayAndTheReport) {
  atTheNextRequest({[this] {
    drawn->showTests({.done = 38, .total = 41, .running = "Conflicting Security Type in PNL"});
    rest();
    expectEverythingFits("tests");
  }});
  startTests();
  settle();
  report::Report report = sampleReport();
  report.sections[1].title = "Current network";
  drawn->showReport(report);
  rest();
  expectEverythingFits("report");
}

INSTANTIATE_TEST_SUITE_P(Every, Language,
                         ::testing::Values("en", "de", "fr", "es", "ja", "ar", "zh"),
                         [](const auto& test) { return std::string(test.param); });

class Arabic : public PageFixture {
 protected:
  Arabic() : PageFixture("ar") {}
};

TEST_F(Arabic, HasTheBarsButtonAtTheLeft) {
  showList({"Alpha"});
  EXPECT_LT(placeOfItem("barButton").left(), 20);
}

TEST_F(Arabic, HasTheLabelsOfTheListAtTheRight) {
  joinTo("Home");
  showList({"Alpha"});
  for (const char* const key : {"SELECTED_NETWORK", "CHOOSE_NETWORK"}) {
    const QQuickItem* const label = textSaying(window(), words(key));
    ASSERT_NE(label, nullptr) << key;
    EXPECT_NEAR(placeOf(*label).right(), 360 - 16 - 15, 0.01) << key;
  }
  const QQuickItem* const mark = textSaying(window(), QStringLiteral("✓"));
  ASSERT_NE(mark, nullptr);
  EXPECT_GT(placeOf(*mark).left(), 180);
  const QQuickItem* const name = textSaying(window(), "Alpha");
  EXPECT_EQ(name->property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
}

TEST_F(Arabic, FillsTheProgressBarFromTheRight) {
  atTheNextRequest({[this] {
    controller->progressView()->setProgress(0.25F);
    rest();
    const QQuickItem* const bar = item("progressBar");
    ASSERT_NE(bar, nullptr);
    const QQuickItem* const filled = bar->childItems().constFirst();
    EXPECT_EQ(filled->width(), 60);
    EXPECT_EQ(filled->x(), 180);
  }});
  startTests();
  settle();
}

}  // namespace
}  // namespace wifi_profile::testing
