#include "diagnostic/platform/toolkit/TableView.h"

#include <algorithm>

#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {

std::shared_ptr<TableViewCell> TableView::dequeueReusableCell(const std::string& identifier,
                                                              IndexPath /*path*/) {
  auto& used = usedCells_[identifier];
  if (used.empty()) return makers_.at(identifier)();
  auto cell = std::move(used.back());
  used.pop_back();
  return cell;
}

// --- Rows

TableView::Row TableView::readRow(TableViewDataSource& source, IndexPath path) {
  auto cell = source.tableViewCellForRowAtIndexPath(*this, path);
  Row row{cell->textLabel().text, cell->image, cell->userInteractionEnabled};
  const std::string& identifier = cell->reuseIdentifier();
  usedCells_[identifier].push_back(std::move(cell));
  return row;
}

void TableView::readAllRows() {
  const auto source = source_.lock();
  if (!source) return;
  hasRead_ = true;
  sections_.resize(static_cast<std::size_t>(source->numberOfSectionsInTableView(*this)));
  for (std::int64_t section = 0; section < numberOfSections(); ++section) {
    std::vector<Row> rows;
    const std::int64_t count = source->tableViewNumberOfRowsInSection(*this, section);
    rows.reserve(static_cast<std::size_t>(count));
    for (std::int64_t row = 0; row < count; ++row) rows.push_back(readRow(*source, {section, row}));
    sections_[static_cast<std::size_t>(section)].rows = std::move(rows);
  }
}

void TableView::reloadData() {
  checkMainThread("TableView::reloadData");
  Screen::shared()->tableDid(table_event::Reloaded{});
  readEverything();
}

void TableView::appear() {
  checkMainThread("TableView::appear");
  if (!hasRead_) readEverything();
}

void TableView::readEverything() {
  readAllRows();
  askForHeaders();
  readHeights();
  Screen::shared()->tableDid(table_event::RowsWereRead{});
}

const std::vector<TableView::Row>& TableView::rowsOfSection(std::int64_t section) const {
  static const std::vector<Row> none;
  const bool there = section >= 0 && section < numberOfSections();
  return there ? sections_[static_cast<std::size_t>(section)].rows : none;
}

void TableView::wasRemovedFromSuperview() {
  Screen::shared()->tableDid(table_event::RemovedFromScreen{});
}

// --- Batches

void TableView::beginUpdates() {
  checkMainThread("TableView::beginUpdates");
  ++openBatches_;
  Screen::shared()->tableDid(table_event::BatchBegan{});
}

void TableView::insertRows(const std::vector<IndexPath>& rows, RowAnimation animation) {
  checkMainThread("TableView::insertRows");
  Screen::shared()->tableDid(table_event::RowsInserted{rows, animation});
  for (const IndexPath& path : rows) changes_[path.section].inserted.push_back(path.row);
}

void TableView::deleteRows(const std::vector<IndexPath>& rows, RowAnimation animation) {
  checkMainThread("TableView::deleteRows");
  Screen::shared()->tableDid(table_event::RowsDeleted{rows, animation});
  for (const IndexPath& path : rows) changes_[path.section].deleted.push_back(path.row);
}

void TableView::endUpdates() {
  checkMainThread("TableView::endUpdates");
  Screen::shared()->tableDid(table_event::BatchEnded{});
  if (--openBatches_ == 0) applyBatch();
}

void TableView::applyBatch() {
  const auto changes = std::exchange(changes_, {});
  const auto source = source_.lock();
  if (!source || !hasRead_) return;
  std::vector<table_event::Repaired> repairs;
  const auto check = [&](std::int64_t section, const RowChanges& wanted) {
    const auto before = static_cast<std::int64_t>(rowsOfSection(section).size());
    const std::int64_t expected = source->tableViewNumberOfRowsInSection(*this, section);
    const bool there = section >= 0 && section < numberOfSections();
    if (there && addsUp(wanted, before, expected)) return;
    repairs.push_back({section, before, static_cast<std::int64_t>(wanted.deleted.size()),
                       static_cast<std::int64_t>(wanted.inserted.size()), expected});
  };
  for (const auto& [section, wanted] : changes) check(section, wanted);
  for (std::int64_t section = 0; section < numberOfSections(); ++section) {
    if (!changes.contains(section)) check(section, {});
  }
  if (!repairs.empty()) {
    std::sort(repairs.begin(), repairs.end(),
              [](const auto& a, const auto& b) { return a.section < b.section; });
    for (const auto& repair : repairs) Screen::shared()->tableDid(repair);
    readAllRows();
  } else {
    for (const auto& [section, wanted] : changes) {
      auto& rows = sections_[static_cast<std::size_t>(section)].rows;
      std::vector<Row> next;
      std::int64_t place = 0;
      for (const std::int64_t old : rowsAfter(wanted, static_cast<std::int64_t>(rows.size()))) {
        next.push_back(old == kNewRow ? readRow(*source, {section, place})
                                      : std::move(rows[static_cast<std::size_t>(old)]));
        ++place;
      }
      rows = std::move(next);
    }
  }
  for (std::int64_t section = 0; section < numberOfSections(); ++section) {
    if (!headerViewOfSection(section)) askForHeader(section);
  }
  readHeights();
  if (repairs.empty()) {
    Screen::shared()->tableDid(table_event::RowsChanged{changes});
  } else {
    Screen::shared()->tableDid(table_event::RowsWereRead{});
  }
}

// --- Selection and scrolling

void TableView::setAllowsSelection(bool allows) {
  checkMainThread("TableView::setAllowsSelection");
  allowsSelection_ = allows;
  Screen::shared()->tableDid(table_event::AllowsSelectionWasSet{allows});
}

void TableView::deselectRow(IndexPath path, bool animated) {
  checkMainThread("TableView::deselectRow");
  Screen::shared()->tableDid(table_event::Deselected{path, animated});
}

bool TableView::canTap(IndexPath path) const {
  const auto& rows = rowsOfSection(path.section);
  const bool there = path.row >= 0 && path.row < static_cast<std::int64_t>(rows.size());
  return allowsSelection_ && there &&
         rows[static_cast<std::size_t>(path.row)].userInteractionEnabled;
}

void TableView::tap(IndexPath path) {
  checkMainThread("TableView::tap");
  const auto delegate = delegate_.lock();
  if (!delegate || !canTap(path)) return;
  reportPerson(PersonAction::tapRow);
  delegate->tableViewDidSelectRowAtIndexPath(*this, path);
}

void TableView::scrollToRow(IndexPath path, ScrollPosition position, bool animated) {
  checkMainThread("TableView::scrollToRow");
  Screen::shared()->tableDid(table_event::Scrolled{path, position, animated});
  if (path.row < 0 || path.row >= static_cast<std::int64_t>(rowsOfSection(path.section).size())) {
    return;
  }
  const Rect row = rectOfRow(path);
  const double firstVisible = contentOffset_ + contentInset_.top;
  const double lastVisible = contentOffset_ + frame().size.height - contentInset_.bottom;
  if (row.origin.y < firstVisible) {
    contentOffset_ = row.origin.y - contentInset_.top;
  } else if (row.origin.y + row.size.height > lastVisible) {
    contentOffset_ = row.origin.y + row.size.height + contentInset_.bottom - frame().size.height;
  }
}

void TableView::setContentInset(Insets insets) {
  contentOffset_ += contentInset_.top - insets.top;
  contentInset_ = insets;
}

void TableView::setRefreshControl(std::shared_ptr<RefreshControl> control) {
  checkMainThread("TableView::setRefreshControl");
  refreshControl_ = std::move(control);
  Screen::shared()->refreshWasInstalled();
}

}  // namespace wifi_profile::toolkit
