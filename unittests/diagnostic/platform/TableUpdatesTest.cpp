// Batches of changes to a table's rows, and what becomes of one that does not add up.

#include "diagnostic/platform/toolkit/TableView.h"
#include "support/DiagnosticFixture.h"
#include "support/FakeTableRows.h"

namespace wifi_profile::toolkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TableUpdates : public DiagnosticFixture {
 protected:
  void SetUp() override {
    table->setDataSource(rows);
    table->setDelegate(rows);
    table->registerCell<TableViewCell>(FakeTableRows::kIdentifier);
    rows->sections = {{{}, std::make_shared<View>()}, {{"a", "b", "c", "d"}, header}};
    table->appear();
    rows->asked.clear();
  }
  void insert(const std::vector<IndexPath>& paths) { table->insertRows(paths, RowAnimation::fade); }
  void remove(const std::vector<IndexPath>& paths) { table->deleteRows(paths, RowAnimation::fade); }
  void listIs(std::vector<std::string> titles) { rows->sections[1].titles = std::move(titles); }
  std::vector<std::string> list() const { return titlesOf(*table, 1); }

  const std::shared_ptr<View> header = std::make_shared<View>();
  const std::shared_ptr<FakeTableRows> rows = std::make_shared<FakeTableRows>();
  const std::shared_ptr<TableView> table = std::make_shared<TableView>(Rect{{0, 0}, {100, 100}});
};

TEST_F(TableUpdates, TakeEffectAtTheEndOfTheBatch) {
  table->beginUpdates();
  listIs({"b", "c", "d"});
  remove({{1, 0}});
  EXPECT_THAT(list(), ElementsAre("a", "b", "c", "d"));
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("b", "c", "d"));
  EXPECT_THAT(screen->told, ElementsAre("begin", "delete [1,0]", "end"));
}

TEST_F(TableUpdates, TakeEffectTogetherAtTheOutermostEnd) {
  listIs({"a", "c", "d", "e"});
  table->beginUpdates();
  table->beginUpdates();
  remove({{1, 1}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "b", "c", "d"));
  table->beginUpdates();
  insert({{1, 3}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "b", "c", "d"));
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "c", "d", "e"));
  EXPECT_THAT(screen->told, ElementsAre("begin", "begin", "delete [1,1]", "end", "begin",
                                        "insert [1,3]", "end", "end"));
}

TEST_F(TableUpdates, AreToldAgainWhenTheyHaveTakenEffect) {
  screen->rows.clear();
  listIs({"a", "c", "d", "e"});
  table->beginUpdates();
  remove({{1, 1}});
  table->beginUpdates();
  insert({{1, 3}});
  table->endUpdates();
  EXPECT_THAT(screen->rows, IsEmpty());
  table->endUpdates();
  EXPECT_THAT(screen->rows, ElementsAre("changed 1: -1 +1"));
}

TEST_F(TableUpdates, AreToldAsAReadingWhereAllRowsWereReadAnew) {
  EXPECT_THAT(screen->rows, ElementsAre("read"));  // the first showing
  table->reloadData();
  listIs({"b"});
  table->beginUpdates();
  table->endUpdates();
  EXPECT_THAT(screen->rows, ElementsAre("read", "read", "read"));
}

TEST_F(TableUpdates, DeleteRowsAsTheyWereAndInsertThemAsTheyWillBe) {
  listIs({"a", "new", "b", "d"});
  table->beginUpdates();
  remove({{1, 2}});
  insert({{1, 1}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "new", "b", "d"));
}

TEST_F(TableUpdates, DoNotDependOnTheOrderInWhichTheyAreAskedFor) {
  listIs({"x", "b", "y", "d"});
  table->beginUpdates();
  insert({{1, 2}});
  remove({{1, 2}, {1, 0}});
  insert({{1, 0}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("x", "b", "y", "d"));
  EXPECT_THAT(rows->asked, ElementsAre("row [1,0]", "row [1,2]"));
}

TEST_F(TableUpdates, ReadTheInsertedRowsOnly) {
  listIs({"a", "b", "new", "c", "d"});
  table->beginUpdates();
  insert({{1, 2}});
  table->endUpdates();
  EXPECT_THAT(rows->asked, ElementsAre("row [1,2]"));
}

TEST_F(TableUpdates, LeaveTheRowsThatTheyDoNotNameAsTheyAreShown) {
  listIs({"A", "B", "new", "C", "D"});
  table->beginUpdates();
  insert({{1, 2}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "b", "new", "c", "d"));
}

TEST_F(TableUpdates, MayBeForSeveralSections) {
  rows->sections[0].titles = {"chosen"};
  listIs({"a", "c", "d"});
  table->beginUpdates();
  insert({{0, 0}});
  remove({{1, 1}});
  table->endUpdates();
  EXPECT_THAT(titlesOf(*table, 0), ElementsAre("chosen"));
  EXPECT_THAT(list(), ElementsAre("a", "c", "d"));
}

TEST_F(TableUpdates, ChangeNothingWhenTheyNameNoRow) {
  table->beginUpdates();
  remove({});
  insert({});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(screen->told, ElementsAre("begin", "delete", "insert", "end"));
}

TEST_F(TableUpdates, AskForTheHeaderOfASectionThatGetsItsFirst) {
  rows->sections[0].header = nullptr;
  table->reloadData();
  rows->asked.clear();
  rows->sections[0] = {{"chosen"}, std::make_shared<View>()};
  table->beginUpdates();
  insert({{0, 0}});
  table->endUpdates();
  EXPECT_THAT(rows->asked, ElementsAre("row [0,0]", "header 0"));
  EXPECT_EQ(table->headerViewOfSection(0), rows->sections[0].header);
}

// --- Batches that do not add up

TEST_F(TableUpdates, AreThrownAwayWhenTheyDoNotAddUp) {
  listIs({"b", "c"});
  table->beginUpdates();
  remove({{1, 0}});
  EXPECT_THAT(screen->told, ElementsAre("begin", "delete [1,0]"));
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("b", "c"));
  EXPECT_THAT(screen->told,
              ElementsAre("begin", "delete [1,0]", "end", "repaired 1: 4 - 1 + 0, expected 2"));
}

TEST_F(TableUpdates, AreLookedAtOnlyWhenTheOutermostBatchEnds) {
  listIs({"b", "c", "d", "e"});
  table->beginUpdates();
  table->beginUpdates();
  remove({{1, 0}});
  table->endUpdates();
  EXPECT_THAT(screen->told, ElementsAre("begin", "begin", "delete [1,0]", "end"));
  insert({{1, 3}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("b", "c", "d", "e"));
  EXPECT_EQ(screen->told.back(), "end");
}

TEST_F(TableUpdates, AreRepairedByReadingEveryRowAnewAndNoHeaderAgain) {
  rows->sections[0].titles = {"chosen"};
  table->reloadData();
  rows->asked.clear();
  screen->told.clear();
  listIs({"b"});
  table->beginUpdates();
  table->endUpdates();
  EXPECT_THAT(rows->asked, ElementsAre("row [0,0]", "row [1,0]"));
  EXPECT_THAT(screen->told, ElementsAre("begin", "end", "repaired 1: 4 - 0 + 0, expected 1"));
}

TEST_F(TableUpdates, AreRepairedInEachBadSectionByItsNumber) {
  rows->sections[0].titles = {"chosen"};
  listIs({"b"});
  table->beginUpdates();
  remove({{1, 0}, {1, 1}});
  table->endUpdates();
  EXPECT_THAT(screen->told,
              ElementsAre("begin", "delete [1,0] [1,1]", "end", "repaired 0: 0 - 0 + 0, expected 1",
                          "repaired 1: 4 - 2 + 0, expected 1"));
  EXPECT_THAT(titlesOf(*table, 0), ElementsAre("chosen"));
  EXPECT_THAT(list(), ElementsAre("b"));
}

TEST_F(TableUpdates, AreThrownAwayInEverySectionWhenOneIsBad) {
  rows->sections[0].titles = {"chosen"};
  listIs({"B"});
  table->beginUpdates();
  insert({{0, 0}});  // right as such
  table->endUpdates();
  EXPECT_THAT(rows->asked, ElementsAre("row [0,0]", "row [1,0]"));
  EXPECT_THAT(screen->told,
              ElementsAre("begin", "insert [0,0]", "end", "repaired 1: 4 - 0 + 0, expected 1"));
}

TEST_F(TableUpdates, AreRepairedWhereARowIsNamedTwiceOrIsNotThere) {
  struct Case {
    std::vector<IndexPath> deleted;
    std::vector<IndexPath> inserted;
    const char* repaired;
  };
  for (const Case& batch : {Case{{{1, 1}, {1, 1}}, {{1, 0}, {1, 1}}, "1: 4 - 2 + 2, expected 4"},
                            Case{{{1, 4}}, {{1, 0}}, "1: 4 - 1 + 1, expected 4"},
                            Case{{{1, 0}}, {{1, 4}}, "1: 4 - 1 + 1, expected 4"},
                            Case{{{1, -1}}, {{1, 0}}, "1: 4 - 1 + 1, expected 4"},
                            Case{{}, {{2, 0}}, "2: 0 - 0 + 1, expected 0"}}) {
    table->beginUpdates();
    remove(batch.deleted);
    insert(batch.inserted);
    table->endUpdates();
    EXPECT_EQ(screen->told.back(), std::string("repaired ") + batch.repaired);
    EXPECT_THAT(list(), ElementsAre("a", "b", "c", "d"));
  }
}

TEST_F(TableUpdates, AreAllDoneAfterARepair) {
  listIs({"a"});
  table->beginUpdates();
  remove({{1, 0}});
  table->endUpdates();
  screen->told.clear();
  listIs({"a", "b"});
  table->beginUpdates();
  insert({{1, 1}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "b"));
  EXPECT_THAT(screen->told, ElementsAre("begin", "insert [1,1]", "end"));
}

TEST_F(TableUpdates, AreRepairedInASectionThatTheTableDoesNotHave) {
  table->beginUpdates();
  insert({{7, 0}});
  table->endUpdates();
  EXPECT_THAT(list(), ElementsAre("a", "b", "c", "d"));
  EXPECT_EQ(screen->told.size(), 4U);
}

TEST_F(TableUpdates, ChangeNothingBeforeTheRowsAreRead) {
  const auto unread = std::make_shared<TableView>();
  unread->setDataSource(rows);
  rows->sections = {{{"a"}, nullptr}, {{}, header}};
  unread->beginUpdates();
  unread->insertRows({{0, 0}}, RowAnimation::fade);
  unread->endUpdates();
  EXPECT_EQ(unread->numberOfSections(), 0);
  EXPECT_THAT(screen->told, ElementsAre("begin", "insert [0,0]", "end"));
}

}  // namespace
}  // namespace wifi_profile::toolkit
