// The window's close button while the run goes on.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/PageFixture.h"
#include "app/window/WindowFixture.h"

namespace wifi_profile::testing {
namespace {

// A run whose first test takes `seconds`; a stop cuts that short.
std::string runThatTakes(double seconds) {
  return R"({"scenario": 1, "status": [{"ssid": "Home"}],
             "answers": {"CustomIPv4": [{"didPass": true, "delay": )" +
         std::to_string(seconds) + "}]}}";
}

class Closing : public WindowFixture {
 protected:
  static Deed closeTheWindow() {
    return {"close", [](window::WindowScreen& screen) {
              if (!itemNamed(screen.window(), "stopButton")) return false;
              screen.window().close();
              return true;
            }};
  }
  static Deed pressButton(const QString& name, const char* key) {
    return {key, [name, key](window::WindowScreen& screen) {
              QQuickItem* const button = itemSaying(
                  screen.window(), name, window::WindowModel::text(QString::fromLatin1(key)));
              if (!button || !isSettled(*button)) return false;
              return makeHand(HandKind::mouse)->press(screen.window(), *button);
            }};
  }
  // At its place since the last look.
  static bool isSettled(const QQuickItem& button) {
    static QRectF before;
    return std::exchange(before, placeOf(button)) == placeOf(button);
  }
};

TEST_F(Closing, AsksWhetherToStopAndGoesOnToTheEnd) {
  bool asked = false;
  const auto result = runWith(runThatTakes(3),
                              {closeTheWindow(),
                               {"look",
                                [&](window::WindowScreen& shown) {
                                  asked = wordsOf(shownTexts(shown.window()))
                                              .contains(window::WindowModel::text("STOP_QUESTION"));
                                  return asked;
                                }},
                               pressButton("alertButton", "GO_ON")},
                              false);
  EXPECT_TRUE(asked);
  EXPECT_EQ(result.stuckAt, "");
  EXPECT_EQ(result.run.ending, cli::Ending::finished);
  EXPECT_FALSE(screen->isClosed());  // the report is still to come
}

TEST_F(Closing, StopsTheRunByTheWindowsOwnButton) {
  const auto result =
      runWith(runThatTakes(600), {closeTheWindow(), pressButton("alertButton", "STOP")}, false);
  EXPECT_EQ(result.stuckAt, "");
  EXPECT_EQ(result.run.ending, cli::Ending::tornDown);
  EXPECT_EQ(result.run.record, "");
}

TEST_F(Closing, StopsTheRunByTheButtonOfThePage) {
  const auto result =
      runWith(runThatTakes(600),
              {pressButton("stopButton", "STOP"), pressButton("alertButton", "STOP")}, false);
  EXPECT_EQ(result.run.ending, cli::Ending::tornDown);
}

TEST_F(Closing, StopsAListOfNetworksToo) {
  const std::string json =
      R"({"scenario": 1, "user": [], "answers": {"NoScanResults": [{"didPass": true, "info":
          {"ScanResults": [{"ssid": "Alpha", "bssid": "02:00:00:00:00:01", "rssi": -40}]}}]}})";
  const auto result = runWith(json,
                              {{"close",
                                [](window::WindowScreen& shown) {
                                  if (!shown.model().canRefresh()) return false;
                                  shown.window().close();
                                  return true;
                                }},
                               pressButton("alertButton", "STOP")},
                              true);
  EXPECT_EQ(result.stuckAt, "");
  EXPECT_EQ(result.run.ending, cli::Ending::tornDown);
}

class ClosingInMidRun : public PageFixture {
 protected:
  void closeAndAnswer(const char* key) {
    window().close();
    rest();
    EXPECT_THAT(wordsOf(shownTexts(window())), ::testing::Contains(words("STOP_QUESTION")));
    QQuickItem* const button = itemSaying(window(), "alertButton", words(key));
    ASSERT_NE(button, nullptr);
    makeHand(HandKind::mouse)->press(window(), *button);
    rest();
  }
};

TEST_F(ClosingInMidRun, SaysThatItIsStoppingAndAsksOnlyOnce) {
  atTheNextRequest({[this] {
    closeAndAnswer("STOP");
    EXPECT_EQ(timesAskedToStop, 1);
    EXPECT_THAT(wordsOf(shownTexts(window())), ::testing::Contains(words("STOPPING")));
    EXPECT_EQ(item("stopButton"), nullptr);
    window().close();
    rest();
    EXPECT_FALSE(model().asksToStop());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(timesAskedToStop, 1);
  }});
  startTests();
  settle();
}

TEST_F(ClosingInMidRun, GoesOnAsBeforeAndCanBeAskedAgain) {
  atTheNextRequest({[this] {
    for (int time = 0; time < 2; ++time) {
      closeAndAnswer("GO_ON");
      EXPECT_EQ(timesAskedToStop, 0);
      EXPECT_FALSE(model().stopping());
      EXPECT_NE(item("stopButton"), nullptr);
    }
  }});
  startTests();
  settle();
}

TEST_F(ClosingInMidRun, ChangesNothingMoreInTheListOnceItStops) {
  showList({"Alpha", "Beta"});
  closeAndAnswer("STOP");
  EXPECT_EQ(timesAskedToStop, 1);
  press("row1.0");
  key(Qt::Key_F5);
  settle();
  EXPECT_EQ(selectedName(), "-");
  EXPECT_EQ(service->requests().size(), 1U);
}

}  // namespace
}  // namespace wifi_profile::testing
