// Refreshing the list of networks: by pulling it down, by keys, and by its button.

#include <QPointingDevice>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/PageFixture.h"

namespace wifi_profile::testing {
namespace {

constexpr int kFar = 200;  // points; more than the 64 it takes, and what it takes to begin a drag
constexpr int kShort = 50;

class Pull : public PageFixture {
 protected:
  void SetUp() override {
    showList({"Alpha", "Beta"});
    for (int scan = 0; scan < 2; ++scan) nextScanHears({"Alpha", "Beta"});
    service->forgetRequests();
    screen->told.clear();
  }
  bool isRefreshing() { return controller->refreshControl()->isRefreshing(); }
  void expectOneScan() {
    EXPECT_TRUE(isRefreshing());
    EXPECT_TRUE(service->requests().empty());
    settle();
    EXPECT_FALSE(isRefreshing());
    EXPECT_EQ(service->requests().size(), 1U);
  }
  void pullByMouse(int distance) {
    QPoint place(window().width() / 2, 160);
    QTest::mousePress(&window(), Qt::LeftButton, {}, place);
    for (int moved = 0; moved < distance; moved += 10) {
      place.ry() += 10;
      QTest::mouseMove(&window(), place, 10);
    }
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, place);
    rest();
  }
  void pullByTouch(int distance) {
    static QPointingDevice* const finger = QTest::createTouchDevice();
    QPoint place(window().width() / 2, 160);
    QTest::touchEvent(&window(), finger).press(0, place, &window());
    for (int moved = 0; moved < distance; moved += 10) {
      place.ry() += 10;
      QTest::touchEvent(&window(), finger).move(0, place, &window());
      QTest::qWait(10);
    }
    QTest::touchEvent(&window(), finger).release(0, place, &window());
    rest();
  }
};

TEST_F(Pull, FarEnoughByMouseRefreshesOnce) {
  pullByMouse(kFar);
  expectOneScan();
}

TEST_F(Pull, FarEnoughByTouchRefreshesOnce) {
  pullByTouch(kFar);
  expectOneScan();
}

TEST_F(Pull, ThatIsShortDoesNothing) {
  pullByMouse(kShort);
  EXPECT_FALSE(isRefreshing());
  pullByTouch(kShort);
  EXPECT_FALSE(isRefreshing());
}

TEST_F(Pull, IsReplacedByKeysAndByTheButton) {
  key(Qt::Key_F5);
  rest();
  expectOneScan();
  service->forgetRequests();
  key(Qt::Key_R, Qt::ControlModifier);
  rest();
  expectOneScan();
  service->forgetRequests();
  nextScanHears({"Alpha", "Beta"});
  press("refreshButton");
  rest();
  expectOneScan();
}

TEST_F(Pull, CannotBeMadeWhileTheListIsRefreshed) {
  key(Qt::Key_F5);
  rest();
  EXPECT_EQ(item("refreshButton"), nullptr);
  pullByTouch(kFar);
  pullByMouse(kFar);
  key(Qt::Key_F5);
  rest();
  expectOneScan();
}

TEST_F(Pull, SaysWhatToDoOnTheWay) {
  QPoint place(window().width() / 2, 160);
  QTest::mousePress(&window(), Qt::LeftButton, {}, place);
  for (int moved = 0; moved < 60; moved += 5) {
    QTest::mouseMove(&window(), place += QPoint(0, 5), 10);
  }
  EXPECT_THAT(wordsOf(shownTexts(window())), ::testing::Contains(words("PULL_TO_REFRESH")));
  for (int moved = 0; moved < 150; moved += 5) {
    QTest::mouseMove(&window(), place += QPoint(0, 5), 10);
  }
  EXPECT_THAT(wordsOf(shownTexts(window())), ::testing::Contains(words("RELEASE_TO_REFRESH")));
  QTest::mouseRelease(&window(), Qt::LeftButton, {}, place);
  rest();
  expectOneScan();
}

}  // namespace
}  // namespace wifi_profile::testing
