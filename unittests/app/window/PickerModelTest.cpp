// The table as a list of Qt's: it equals the table after every batch, and tells of it piece by
// piece.

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <set>

#include "app/window/PickerModel.h"
#include "support/DiagnosticFixture.h"
#include "support/FakeTableRows.h"

namespace wifi_profile::testing {
namespace {

using toolkit::FakeTableRows;
using toolkit::IndexPath;
using toolkit::RowAnimation;

// Passes on to a model what a screen passes on.
class ModelScreen final : public runtime::NoScreen {
 public:
  explicit ModelScreen(window::PickerModel& model) : model_(model) {}
  void tableDid(const toolkit::TableEvent& event) override {
    using namespace toolkit::table_event;
    if (std::holds_alternative<RowsWereRead>(event)) model_.reread();
    if (const auto* changed = std::get_if<RowsChanged>(&event)) model_.rowsChanged(*changed);
  }

 private:
  window::PickerModel& model_;
};

class PickerModelTest : public DiagnosticFixture {
 protected:
  PickerModelTest() {
    table->setDataSource(rows);
    table->setDelegate(rows);
    table->registerCell<toolkit::TableViewCell>(FakeTableRows::kIdentifier);
  }
  void show(std::vector<std::string> selected, std::vector<std::string> networks) {
    rows->sections = {{std::move(selected), std::make_shared<toolkit::View>()},
                      {std::move(networks), std::make_shared<toolkit::View>()}};
    table->appear();
    model.setTable(table);
  }
  // One batch that replaces the rows of both sections; equal titles stay.
  void become(const std::vector<std::vector<std::string>>& wanted) {
    table->beginUpdates();
    for (std::int64_t section = 0; section < 2; ++section) {
      auto& now = rows->sections[static_cast<std::size_t>(section)].titles;
      const auto& next = wanted[static_cast<std::size_t>(section)];
      table->deleteRows(missing(section, now, next), RowAnimation::fade);
      table->insertRows(missing(section, next, now), RowAnimation::fade);
      now = next;
    }
    table->endUpdates();
  }
  // The rows of `in` whose titles `from` has not.
  static std::vector<IndexPath> missing(std::int64_t section, const std::vector<std::string>& in,
                                        const std::vector<std::string>& from) {
    const std::set<std::string> there(from.begin(), from.end());
    std::vector<IndexPath> paths;
    for (std::size_t row = 0; row < in.size(); ++row) {
      if (!there.contains(in[row])) paths.push_back({section, static_cast<std::int64_t>(row)});
    }
    return paths;
  }
  void expectEqualsTheTable() {
    window::PickerModel fresh;
    fresh.setTable(table);
    ASSERT_EQ(model.rowCount(), fresh.rowCount());
    for (int row = 0; row < fresh.rowCount(); ++row) {
      const auto roles = fresh.roleNames();
      for (auto role = roles.keyBegin(); role != roles.keyEnd(); ++role) {
        ASSERT_EQ(model.data(model.index(row), *role), fresh.data(fresh.index(row), *role))
            << row << " " << roles[*role].toStdString();
      }
    }
  }

  const std::shared_ptr<FakeTableRows> rows = std::make_shared<FakeTableRows>();
  const std::shared_ptr<toolkit::TableView> table =
      std::make_shared<toolkit::TableView>(toolkit::Rect{{0, 0}, {360, 640}});
  window::PickerModel model;
  ModelScreen modelScreen{model};
  const InstalledPlatform platform{{.screen = &modelScreen}};
};

TEST_F(PickerModelTest, TellsOfABatchAsRemovalsAndInsertions) {
  show({}, {"a", "b", "c", "d"});
  QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
  QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
  QSignalSpy insertions(&model, &QAbstractItemModel::rowsInserted);
  become({{"b"}, {"a", "c", "d", "e", "f"}});
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(removals.count(), 1);
  EXPECT_EQ(insertions.count(), 2);  // the selected row; two rows at the end, in one piece
  expectEqualsTheTable();
}

TEST_F(PickerModelTest, TellsOfABatchOfVeryManyPiecesAsAReset) {
  std::vector<std::string> every(400);
  std::vector<std::string> other;
  for (std::size_t i = 0; i < every.size(); ++i) {
    every[i] = std::to_string(i);
    other.push_back(i % 2 == 0 ? every[i] : "new " + every[i]);
  }
  show({}, every);
  QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
  QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
  become({{}, other});
  EXPECT_EQ(resets.count(), 1);
  EXPECT_EQ(removals.count(), 0);
  expectEqualsTheTable();
}

TEST_F(PickerModelTest, ReadsATableThatWasRepairedAnew) {
  show({}, {"a", "b"});
  QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
  table->beginUpdates();
  rows->sections[1].titles = {"x"};
  table->deleteRows({{1, 7}}, RowAnimation::fade);  // there is none
  table->endUpdates();
  EXPECT_EQ(resets.count(), 1);
  expectEqualsTheTable();
}

TEST_F(PickerModelTest, IsEmptyWithoutATable) {
  show({"a"}, {"b"});
  EXPECT_GT(model.rowCount(), 0);
  model.setTable(nullptr);
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_EQ(model.indexOf({0, 0}), -1);
}

// Qt's own tester follows the signals and ends the process at the first that does not fit.
TEST_F(PickerModelTest, EqualsTheTableAfterRandomBatches) {
  std::mt19937 random(20261121);
  const auto upTo = [&](std::size_t end) { return static_cast<std::size_t>(random() % end); };
  std::vector<std::string> all(60);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = std::to_string(i);
  const auto some = [&](std::size_t most) {
    std::vector<std::string> chosen;
    const std::size_t count = upTo(most + 1);
    std::sample(all.begin(), all.end(), std::back_inserter(chosen), count, random);
    return chosen;  // in the order of `all`
  };
  show({}, some(30));
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  for (int batch = 0; batch < 500; ++batch) {
    become({some(1), some(upTo(60))});
    expectEqualsTheTable();
    if (HasFatalFailure()) FAIL() << "in batch " << batch;
  }
}

}  // namespace
}  // namespace wifi_profile::testing
