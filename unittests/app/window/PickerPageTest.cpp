// The page of the list of networks: where things stand, and what they say.

#include <QSignalSpy>
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/PageFixture.h"
#include "diagnostic/ui/WiFiHeaderView.h"
#include "runtime/SafeText.h"

namespace wifi_profile::testing {
namespace {

struct PlaceCase {
  QSize size;
  double inset;  // of the rows' background: 16, or more so that the list is 640 wide at most
};

class PickerPlaces : public PageFixture, public ::testing::WithParamInterface<PlaceCase> {
 protected:
  PickerPlaces() : PageFixture("en", GetParam().size) { joinTo("Home"); }

  // On the page at rest the content's top stands below the bar.
  double onPage(double contentY) { return contentY + controller->tableView()->contentInset().top; }
  void expectRowInPlace(toolkit::IndexPath path) {
    const toolkit::Rect row = controller->tableView()->rectOfRow(path);
    const double inset = controller->tableView()->backgroundInset().value_or(-1);
    EXPECT_EQ(placeOfItem(QStringLiteral("row%1.%2").arg(path.section).arg(path.row)),
              QRectF(inset, onPage(row.origin.y), row.size.width - 2 * inset, row.size.height));
  }
  void expectHeaderInPlace(std::int64_t section, const char* key) {
    const QQuickItem* const label = textSaying(window(), words(key));
    ASSERT_NE(label, nullptr) << key;
    const double inset = controller->tableView()->backgroundInset().value_or(-1);
    EXPECT_EQ(placeOf(*label).x(), inset + 15);
    EXPECT_NEAR(placeOf(*label).y(),
                onPage(controller->tableView()->rectOfHeader(section).origin.y) + 10, 0.01);
  }
  void expectEverythingInPlace() {
    for (std::int64_t section = 0; section < 2; ++section) {
      const auto rows =
          static_cast<std::int64_t>(controller->tableView()->rowsOfSection(section).size());
      EXPECT_GT(rows, 0);
      for (std::int64_t row = 0; row < rows; ++row) expectRowInPlace({section, row});
    }
    expectHeaderInPlace(0, "SELECTED_NETWORK");
    expectHeaderInPlace(1, "CHOOSE_NETWORK");
  }
};

TEST_P(PickerPlaces, OfRowsAndHeadersAreTheToolkits) {
  showList({"Alpha", "Beta", "Home"});
  EXPECT_EQ(controller->tableView()->backgroundInset(), GetParam().inset);
  expectEverythingInPlace();
}

TEST_P(PickerPlaces, FollowTheWindowsSize) {
  resize({500, 700});
  showList({"Alpha", "Beta", "Home"});
  resize(GetParam().size);
  rest();
  EXPECT_EQ(controller->tableView()->backgroundInset(), GetParam().inset);
  expectEverythingInPlace();
}

TEST_P(PickerPlaces, StayTheToolkitsWhenRowsComeAndGo) {
  showList({"Alpha", "Beta", "Home"});
  nextScanHears({"Aachen", "Beta", "Home"});
  key(Qt::Key_F5);
  settle();
  expectEverythingInPlace();
}

TEST_P(PickerPlaces, OfTheBarIsTheTopOfTheWindow) {
  showList({"Alpha"});
  EXPECT_EQ(placeOfItem("bar"), QRectF(0, 0, GetParam().size.width(), 64));
  EXPECT_TRUE(placeOfItem("bar").contains(placeOfItem("barButton")));
}

// Where a font is wider than the toolkit reckons, the spinner makes room for the label.
TEST_P(PickerPlaces, OfTheSpinnerIsBesideItsLabel) {
  atTheNextRequest({[this] {
    rest();
    const auto wheels = shownOfType(window(), "Wheel");
    ASSERT_EQ(wheels.size(), 1U);
    const QQuickItem* const label = textSaying(window(), words("CHOOSE_NETWORK"));
    ASSERT_NE(label, nullptr);
    const toolkit::Rect frame = controller->networksGroupHeaderView()->spinner()->frame();
    EXPECT_EQ(wheels.front()->width(), frame.size.width);
    EXPECT_EQ(wheels.front()->height(), frame.size.height);
    EXPECT_NEAR(wheels.front()->mapToScene({0, 0}).y(), placeOf(*label).y() - 2, 3);
    EXPECT_NEAR(wheels.front()->x(), std::max(frame.origin.x, label->x() + label->width() + 10),
                0.01);
    EXPECT_EQ(wheels.front()->y(), frame.origin.y);
  }});
  showList({"Alpha"});
  EXPECT_TRUE(shownOfType(window(), "Wheel").empty());
}

INSTANTIATE_TEST_SUITE_P(At, PickerPlaces,
                         ::testing::Values(PlaceCase{{360, 640}, 16}, PlaceCase{{768, 1024}, 64},
                                           PlaceCase{{1200, 800}, 280}),
                         [](const auto& test) {
                           return std::to_string(test.param.size.width()) + "x" +
                                  std::to_string(test.param.size.height());
                         });

class PickerPage : public PageFixture {
 protected:
  void expectMark(const QString& row, bool marked) {
    const QQuickItem* const mark = textSaying(window(), QStringLiteral("✓"));
    QQuickItem* const found = item(row);
    ASSERT_NE(found, nullptr) << row.toStdString();
    EXPECT_EQ(mark && isInside(*mark, *found), marked) << row.toStdString();
  }
};

TEST_F(PickerPage, MarksTheSelectedRowOnly) {
  joinTo("Home");
  showList({"Alpha", "Home"});
  EXPECT_EQ(wordsOf(shownTexts(window())).count(QStringLiteral("✓")), 1);
  expectMark("row0.0", true);
  expectMark("row1.0", false);
  EXPECT_EQ(item("row0.0")->property("text"), "Home");
}

TEST_F(PickerPage, LetsTheSelectedRowNotBePressed) {
  joinTo("Home");
  showList({"Alpha", "Home"});
  QSignalSpy notices(&model(), &window::WindowModel::noticed);
  screen->told.clear();
  for (const HandKind hand : {HandKind::mouse, HandKind::touch}) press("row0.0", hand);
  key(Qt::Key_Home);  // the first row that can be
  EXPECT_FALSE(item("row0.0")->property("highlighted").toBool());
  EXPECT_FALSE(item("row0.0")->isEnabled());
  EXPECT_EQ(selectedName(), "Home");
  EXPECT_TRUE(notices.isEmpty());
}

TEST_F(PickerPage, ShowsHostileNamesAsHarmlessPlainText) {
  const std::string names[] = {
      "<b>bold</b><img src='http://evil.example/x'>",
      "<a href=\"file:///etc/passwd\">&amp;</a>",
      "\xE2\x80\xAEverkehrt\xE2\x80\xAC",
      "bad \xFF\xC3( bytes \\",
      "two\nlines\r\tand\x1B[31m more",
      std::string(10000, 'w'),
  };
  std::vector<ScanResultRef> results;
  for (const std::string& name : names) results.push_back(heard(name));
  nextScanHears(results);
  startList();
  settle();
  const Titles rows = networkRows();
  ASSERT_EQ(rows.size(), std::size(names) + 1);
  for (std::size_t row = 0; row < std::size(names); ++row) {
    QQuickItem* const shown = item(QStringLiteral("row1.%1").arg(row));
    ASSERT_NE(shown, nullptr);
    const QString wanted = QString::fromStdString(runtime::safeText(rows[row]));
    const QQuickItem* const text = textSaying(window(), wanted);
    ASSERT_NE(text, nullptr) << rows[row].substr(0, 50);
    EXPECT_EQ(text->property("textFormat").toInt(), 0);  // Text.PlainText
    EXPECT_EQ(text->property("lineCount").toInt(), 1);
    EXPECT_TRUE(isInside(*text, *shown));
    EXPECT_TRUE(placeOf(*shown).contains(placeOf(*text)));
    EXPECT_LE(text->property("paintedWidth").toDouble(), text->width());
    EXPECT_EQ(shown->height(), 44);
  }
  const QQuickItem* const longest =
      textSaying(window(), QString::fromStdString(std::string(10000, 'w')));
  EXPECT_TRUE(longest->property("truncated").toBool());
}

TEST_F(PickerPage, SaysThatItIsScanning) {
  atTheNextRequest({[this] {
    rest();
    EXPECT_TRUE(wordsOf(shownTexts(window())).contains(words("SCANNING")));
    EXPECT_FALSE(wordsOf(shownTexts(window())).contains(words("NO_NETWORKS")));
  }});
  showList({"Alpha"});
  EXPECT_FALSE(wordsOf(shownTexts(window())).contains(words("SCANNING")));
}

TEST_F(PickerPage, SaysThatThereAreNoNetworks) {
  showList({});
  drawn->showEmptyList(
      {.why = app::EmptyList::Why::noneInRange, .reason = {}, .askForPower = nullptr});
  rest();
  EXPECT_TRUE(wordsOf(shownTexts(window())).contains(words("NO_NETWORKS")));
  nextScanHears({"Alpha"});
  key(Qt::Key_F5);
  settle();
  EXPECT_FALSE(wordsOf(shownTexts(window())).contains(words("NO_NETWORKS")));
}

TEST_F(PickerPage, SaysWhyTheListIsEmpty) {
  using Why = app::EmptyList::Why;
  showList({});
  for (const auto& [why, key] : {std::pair{Why::noOtherInRange, "NO_OTHER_NETWORKS"},
                                 {Why::onlyHiddenInRange, "ONLY_HIDDEN_NETWORKS"},
                                 {Why::scanFailed, "SCAN_FAILED"},
                                 {Why::radioOff, "RADIO_OFF"},
                                 {Why::powerOnFailed, "POWER_ON_FAILED"}}) {
    drawn->showEmptyList({.why = why, .reason = "because of <b>this</b>", .askForPower = nullptr});
    rest();
    ASSERT_NE(item("listStatus"), nullptr);
    // Also below the row of a selected network.
    EXPECT_TRUE(item("listStatus")->isVisible());
    EXPECT_EQ(item("listStatus")->property("text"), words(key));
    EXPECT_EQ(item("listReason")->property("text"), "because of <b>this</b>");
    EXPECT_EQ(item("powerButton"), nullptr);
  }
}

TEST_F(PickerPage, AsksAgainForThePower) {
  showList({});
  int asked = 0;
  drawn->showEmptyList(
      {.why = app::EmptyList::Why::radioOff, .reason = {}, .askForPower = [&] { ++asked; }});
  rest();
  press("powerButton");
  EXPECT_EQ(asked, 1);
}

TEST_F(PickerPage, SaysWhyARowCannotBePressedWhileTheListIsRefreshed) {
  showList({"Alpha", "Beta"});
  nextScanHears({"Alpha", "Beta"});
  key(Qt::Key_F5);  // the scan is not over before the queues run
  rest();
  press("row1.0");
  EXPECT_TRUE(
      waitUntil([&] { return wordsOf(shownTexts(window())).contains(words("LIST_BUSY")); }));
  EXPECT_EQ(selectedName(), "-");
  settle();
  press("row1.0");
  settle();
  EXPECT_EQ(selectedName(), "Alpha");
}

TEST_F(PickerPage, SaysWhatTheSignOfTheBarsButtonWaitsFor) {
  showList({"Alpha"});
  EXPECT_FALSE(item("barButton")->isEnabled());
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_TRUE(
      waitUntil([&] { return wordsOf(shownTexts(window())).contains(words("CHOOSE_FIRST")); }));
  press("row1.0");
  settle();
  EXPECT_TRUE(item("barButton")->isEnabled());
}

TEST_F(PickerPage, ShowsTheChosenNetworkWhereverTheListHadBeenScrolled) {
  std::vector<ScanResultRef> results;
  for (int i = 0; i < 100; ++i) results.push_back(heard("net" + std::to_string(1000 + i)));
  nextScanHears(results);
  startList();
  settle();
  key(Qt::Key_End);
  key(Qt::Key_Up);
  rest();
  key(Qt::Key_Return);
  settle();
  EXPECT_EQ(selectedName(), "net1099");
  ASSERT_NE(item("row0.0"), nullptr);
  EXPECT_GE(placeOfItem("row0.0").top(), 64);
  EXPECT_LE(placeOfItem("row0.0").bottom(), window().height());
}

}  // namespace
}  // namespace wifi_profile::testing
