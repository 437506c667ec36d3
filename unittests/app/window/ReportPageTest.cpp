// The page of the report.

#include <QAccessible>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/window/PageFixture.h"
#include "app/window/ReportSample.h"

namespace wifi_profile::testing {
namespace {

using ::testing::Contains;
using ::testing::Not;

class ReportPage : public PageFixture {
 protected:
  void SetUp() override {
    drawn->showReport(sampleReport());
    rest();
  }
  QStringList said() { return wordsOf(shownTexts(window())); }
  bool isOpen(const QString& finding) { return item(finding)->property("open").toBool(); }
  static QString qt(const std::string& text) { return QString::fromStdString(text); }
};

TEST_F(ReportPage, SaysSummarySectionsCountsAndFindings) {
  resize({360, 2000});  // all of it
  rest();
  const report::Report report = sampleReport();
  EXPECT_THAT(said(), Contains(qt(report.summary)));
  for (const report::ReportSection& section : report.sections) {
    EXPECT_THAT(said(), Contains(qt(section.title)));
    if (!section.note.empty()) {
      EXPECT_THAT(said(), Contains(qt(section.note)));
    }
    for (const report::ReportFinding& finding : section.findings) {
      EXPECT_THAT(said(), Contains(qt(finding.sentence)));
      if (!finding.advice.empty()) {
        EXPECT_THAT(said(), Contains("→ " + qt(finding.advice)));
      }
    }
  }
  for (const char* const count : {"✗ 1", "! 1", "· 1", "✓ 1", "? 1"}) {
    EXPECT_THAT(said(), Contains(QString::fromUtf8(count)));
  }
}

TEST_F(ReportPage, ShowsTheEarlyEndBeforeTheSections) {
  report::Report report;
  report.summary = "Not tested";
  report.earlyEnd = report::ReportFinding{.mark = report::ReportMark::look,
                                          .sentence = "The radio was switched off.",
                                          .values = {},
                                          .advice = "Switch it on.",
                                          .explanation = ""};
  drawn->showReport(report);
  rest();
  EXPECT_EQ(item("finding0")->property("text"), "The radio was switched off.");
}

TEST_F(ReportPage, OpensAndClosesAFindingByMouseTouchAndPressAction) {
  const report::Report report = sampleReport();
  const QString explanation = qt(report.sections[0].findings[0].explanation);
  for (const HandKind hand : {HandKind::mouse, HandKind::touch, HandKind::assistive}) {
    ASSERT_FALSE(isOpen("finding1"));
    EXPECT_THAT(said(), Not(Contains(explanation)));
    const double closedHeight = placeOfItem("finding1").height();
    press("finding1", hand);
    rest();
    EXPECT_TRUE(isOpen("finding1"));
    EXPECT_THAT(said(), Contains(explanation));
    EXPECT_THAT(said(), Contains(QString("RSSI -74 dBm, noise -88 dBm")));
    EXPECT_GT(placeOfItem("finding1").height(), closedHeight);
    press("finding1", hand);
    rest();
    EXPECT_FALSE(isOpen("finding1"));
    EXPECT_EQ(placeOfItem("finding1").height(), closedHeight);
  }
}

TEST_F(ReportPage, OpensAFindingByReturnAndLeavesTheOthersClosed) {
  key(Qt::Key_Home);
  key(Qt::Key_Down);
  rest();
  EXPECT_TRUE(item("finding2")->property("highlighted").toBool());
  key(Qt::Key_Return);
  rest();
  EXPECT_TRUE(isOpen("finding2"));
  EXPECT_FALSE(isOpen("finding1"));
  key(Qt::Key_Space);
  rest();
  EXPECT_FALSE(isOpen("finding2"));
}

TEST_F(ReportPage, StaysWhereItIsScrolledWhenAFindingOpens) {
  resize({360, 400});
  rest();
  key(Qt::Key_End);
  rest();
  const QRectF before = placeOfItem("finding7");
  press("finding8");
  rest();
  EXPECT_TRUE(isOpen("finding8"));
  EXPECT_EQ(placeOfItem("finding7"), before);
}

TEST_F(ReportPage, IsWalkedByKeysFromFindingToFinding) {
  resize({360, 400});
  rest();
  for (const int finding : {1, 2, 3, 4, 5, 7, 8}) {
    key(finding == 1 ? Qt::Key_Home : Qt::Key_Down);
    rest();
    QQuickItem* const row = item(QStringLiteral("finding%1").arg(finding));
    ASSERT_NE(row, nullptr) << finding;
    EXPECT_TRUE(row->property("highlighted").toBool()) << finding;
    EXPECT_GE(placeOf(*row).top(), 64) << finding;
    EXPECT_LE(placeOf(*row).bottom(), 400) << finding;
  }
  for (const int finding : {7, 5, 4, 3, 2, 1}) {
    key(Qt::Key_Up);
    rest();
    QQuickItem* const row = item(QStringLiteral("finding%1").arg(finding));
    ASSERT_NE(row, nullptr) << finding;
    EXPECT_GE(placeOf(*row).top(), 64) << finding;
    EXPECT_LE(placeOf(*row).bottom(), 400) << finding;
  }
}

TEST_F(ReportPage, WrapsLongTextsInsideTheWindow) {
  press("finding1");
  rest();
  for (const int height : {640, 2500}) {
    resize({360, height});
    rest();
    for (QQuickItem* const text : shownTexts(window())) {
      const QRectF place = placeOf(*text);
      EXPECT_GE(place.left(), 0) << text->property("text").toString().toStdString();
      EXPECT_LE(place.right(), 360) << text->property("text").toString().toStdString();
      EXPECT_LE(text->property("paintedWidth").toDouble(), text->width() + 0.5)
          << text->property("text").toString().toStdString();
    }
  }
}

TEST_F(ReportPage, ShowsMarkupAsPlainText) {
  EXPECT_EQ(textSaying(window(), "<b>No</b> answer about DNS.")->property("textFormat").toInt(), 0);
}

TEST_F(ReportPage, IsClosedByItsButton) {
  EXPECT_FALSE(drawn->isClosed());
  EXPECT_EQ(item("barButton")->property("text"), words("CLOSE"));
  press("barButton");
  EXPECT_TRUE(waitUntil([&] { return drawn->isClosed(); }));
  EXPECT_FALSE(window().isVisible());
}

TEST_F(ReportPage, IsClosedByEscape) {
  key(Qt::Key_Escape);
  EXPECT_TRUE(waitUntil([&] { return drawn->isClosed(); }));
}

TEST_F(ReportPage, IsClosedWithTheWindowWithoutAQuestion) {
  window().close();
  EXPECT_TRUE(waitUntil([&] { return drawn->isClosed(); }));
  EXPECT_FALSE(model().asksToStop());
}

class ReportAfterTests : public PageFixture {};

TEST_F(ReportAfterTests, TakesTheQuestionWhetherToStopAway) {
  atTheNextRequest({[this] {
    window().close();
    rest();
    EXPECT_TRUE(model().asksToStop());
  }});
  startTests();
  queues->runUntilIdle();
  drawn->showReport(sampleReport());
  rest();
  EXPECT_FALSE(model().asksToStop());
  EXPECT_EQ(item("alertButton0"), nullptr);
}

}  // namespace
}  // namespace wifi_profile::testing
