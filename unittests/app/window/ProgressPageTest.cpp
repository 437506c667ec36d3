// The page of the tests under way.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/PageFixture.h"

namespace wifi_profile::testing {
namespace {

class ProgressPlaces : public PageFixture, public ::testing::WithParamInterface<QSize> {
 protected:
  ProgressPlaces() : PageFixture("en", GetParam()) {}

  void expectPlacesFor(QSize size) {
    const QRectF label = placeOfItem("progressText");
    const QRectF bar = placeOfItem("progressBar");
    EXPECT_EQ(label.left(), 20);
    EXPECT_EQ(label.right(), size.width() - 20);
    EXPECT_EQ(label.bottom(), size.height() / 2.0 + 21);
    EXPECT_EQ(bar, QRectF((size.width() - 240) / 2.0, label.bottom() + 15, 240, 2));
  }
};

TEST_P(ProgressPlaces, AreWhereTheConstraintsPutThem) {
  atTheNextRequest({[this] {
    rest();
    expectPlacesFor(GetParam());
  }});
  startTests();
  settle();
}

TEST_P(ProgressPlaces, FollowTheWindowsSizeInMidRun) {
  const QSize other(480, 700);
  atTheNextRequest({[&] { resize(other); },
                    [&] {
                      rest();
                      expectPlacesFor(other);
                      resize(GetParam());
                    },
                    [&] {
                      rest();
                      expectPlacesFor(GetParam());
                    }});
  startTests();
  settle();
}

INSTANTIATE_TEST_SUITE_P(At, ProgressPlaces,
                         ::testing::Values(QSize(360, 640), QSize(768, 1024), QSize(1200, 800)),
                         [](const auto& test) {
                           return std::to_string(test.param.width()) + "x" +
                                  std::to_string(test.param.height());
                         });

class ProgressPage : public PageFixture {};

TEST_F(ProgressPage, SaysHowManyTestsAreDoneAndWhichOneRuns) {
  atTheNextRequest({[this] {
    drawn->showTests({.done = 7, .total = 41, .running = "Ping WAN"});
    rest();
    const QStringList said = wordsOf(shownTexts(window()));
    EXPECT_THAT(said, ::testing::Contains(QString("7 of 41 tests done")));
    EXPECT_THAT(said, ::testing::Contains(QString("Now testing: Ping WAN")));
    EXPECT_THAT(said, ::testing::Contains(words("PROGRESS_TEXT")));
  }});
  startTests();
  settle();
}

TEST_F(ProgressPage, FillsTheBarAsTheTestsAreDone) {
  double before = -1;
  bool grows = true;
  const auto look = [&](const FakeService::Request&) {
    queues->postToMain([&] {
      QCoreApplication::processEvents();
      const double value =
          item("progressBar") ? item("progressBar")->property("value").toDouble() : 0;
      grows = grows && value >= before;
      before = value;
    });
    queues->waitForMain();
  };
  service->whileRunning = look;
  startTests();
  settle();
  EXPECT_TRUE(grows);
  EXPECT_EQ(item("progressBar")->property("value").toDouble(), 1);
}

TEST_F(ProgressPage, ShowsTheMessageWhole) {
  atTheNextRequest({[this] {
    rest();
    EXPECT_FALSE(item("progressText")->property("truncated").toBool());
    EXPECT_LE(item("progressText")->property("lineCount").toInt(), 3);
  }});
  startTests();
  settle();
}

TEST_F(ProgressPage, ComesAfterTheListWhenNextIsPressed) {
  showList({"Alpha"});
  press("row1.0");
  settle();
  atTheNextRequest({[this] {
    rest();
    EXPECT_EQ(model().page(), "progress");
    EXPECT_EQ(item("networkList"), nullptr);
    EXPECT_EQ(item("barButton"), nullptr);
    EXPECT_NE(item("progressBar"), nullptr);
  }});
  press("barButton");
  settle();
}

}  // namespace
}  // namespace wifi_profile::testing
