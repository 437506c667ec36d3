// A table in grouped style: sections of rows under headers. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "diagnostic/platform/Text.h"
#include "diagnostic/platform/toolkit/RefreshControl.h"
#include "diagnostic/platform/toolkit/TableBatch.h"
#include "diagnostic/platform/toolkit/TableEvent.h"
#include "diagnostic/platform/toolkit/TableViewCell.h"
#include "diagnostic/platform/toolkit/View.h"

namespace wifi_profile::toolkit {

class TableView;

// The table chooses the height.
inline constexpr double kAutomaticDimension = -1;

// The source of the rows of a table.
class TableViewDataSource {
 public:
  virtual std::int64_t numberOfSectionsInTableView(const TableView& table) = 0;
  virtual std::int64_t tableViewNumberOfRowsInSection(const TableView& table,
                                                      std::int64_t section) = 0;
  // Returns a cell from `dequeueReusableCell`, filled.
  virtual std::shared_ptr<TableViewCell> tableViewCellForRowAtIndexPath(TableView& table,
                                                                        IndexPath path) = 0;

 protected:
  ~TableViewDataSource() = default;
};

// The other queries and notifications of a table.
class TableViewDelegate {
 public:
  virtual double tableViewHeightForHeaderInSection(const TableView& table,
                                                   std::int64_t section) = 0;
  // Null: no header.
  virtual std::shared_ptr<View> tableViewViewForHeaderInSection(const TableView& table,
                                                                std::int64_t section) = 0;
  virtual double tableViewHeightForFooterInSection(const TableView& table,
                                                   std::int64_t section) = 0;
  // The user has tapped the row.
  virtual void tableViewDidSelectRowAtIndexPath(TableView& table, IndexPath path) = 0;

 protected:
  ~TableViewDelegate() = default;
};

// Stores the rows that it shows, as the data source supplied them. It queries a row again only if
// the row is inserted or everything is reloaded. It reports changes to the screen.
//
// Batches nest and take effect together when the outermost one ends. A batch that does not add up
// is discarded: the table then reads all rows again and reports the repaired sections to the
// screen. A batch has no effect if the table has not read its rows yet. The table queries header
// views when it appears, on a reload, when a header is scrolled back, and at the end of a batch for
// a section without one.
class TableView final : public View {
 public:
  // A row as the table shows it.
  struct Row {
    TextRef title;  // nil: no title
    ImageRef image;
    bool userInteractionEnabled = true;
  };

  using View::View;

  // The table does not keep them alive.
  void setDataSource(std::weak_ptr<TableViewDataSource> source) { source_ = std::move(source); }
  void setDelegate(std::weak_ptr<TableViewDelegate> delegate) { delegate_ = std::move(delegate); }

  template <class Cell>
  void registerCell(const std::string& identifier) {
    makers_[identifier] = [identifier] {
      return std::make_shared<Cell>(CellStyle::plain, identifier);
    };
  }
  // Returns a cell of a registered kind: a used one in its current state, or a new one.
  std::shared_ptr<TableViewCell> dequeueReusableCell(const std::string& identifier, IndexPath path);

  void reloadData();
  void beginUpdates();
  void endUpdates();
  // Only within a batch.
  void insertRows(const std::vector<IndexPath>& rows, RowAnimation animation);
  void deleteRows(const std::vector<IndexPath>& rows, RowAnimation animation);

  bool allowsSelection() const { return allowsSelection_; }
  void setAllowsSelection(bool allows);
  void deselectRow(IndexPath path, bool animated);
  // Nothing moves if there is no such row.
  void scrollToRow(IndexPath path, ScrollPosition position, bool animated);

  // Null: no control. A new control replaces the old one.
  const std::shared_ptr<RefreshControl>& refreshControl() const { return refreshControl_; }
  void setRefreshControl(std::shared_ptr<RefreshControl> control);

  std::int64_t numberOfSections() const { return static_cast<std::int64_t>(sections_.size()); }
  // Empty if there is no such section.
  const std::vector<Row>& rowsOfSection(std::int64_t section) const;
  // Null: no header view.
  std::shared_ptr<View> headerViewOfSection(std::int64_t section) const;

  // The geometry of the content of the table, in points.
  Rect rectOfHeader(std::int64_t section) const;
  Rect rectOfRow(IndexPath path) const;
  double contentHeight() const;

  const Insets& contentInset() const { return contentInset_; }
  void setContentInset(Insets insets);
  const Insets& scrollIndicatorInsets() const { return scrollIndicatorInsets_; }
  void setScrollIndicatorInsets(Insets insets) { scrollIndicatorInsets_ = insets; }
  // The content position at the top edge of the table. Adjusted when the content shrinks.
  double contentOffset() const { return contentOffset_; }

  // Distance of the background of the rows from the sides. Empty: this table does not specify it.
  std::optional<double> backgroundInset() const { return backgroundInset_; }
  void setBackgroundInset(std::optional<double> inset) { backgroundInset_ = inset; }

  // Must be called when the table comes onto the screen. Reads the rows if this has not happened
  // yet.
  void appear();

  // User action. A row cannot be tapped if it does not exist, if it is disabled, or if the table
  // does not allow selection; `tap` then does nothing.
  bool canTap(IndexPath path) const;
  void tap(IndexPath path);
  // User action: scrolls a header off the screen and back.
  void scrollHeaderAwayAndBack(std::int64_t section);

  void layoutSubviews() override { layOutHeaders(); }

  static constexpr double kRowHeight = 44;     // points
  static constexpr double kFooterHeight = 18;  // of an automatic footer, points

 protected:
  void wasRemovedFromSuperview() override;

 private:
  struct Section {
    std::vector<Row> rows;
    std::shared_ptr<View> header;
    double headerHeight = 0;
    double footerHeight = 0;
  };

  Row readRow(TableViewDataSource& source, IndexPath path);
  void readEverything();
  void readAllRows();
  void readHeights();
  void askForHeaders();
  void askForHeader(std::int64_t section);
  void layOutHeaders();
  void applyBatch();
  double topOf(std::int64_t section) const;

  std::weak_ptr<TableViewDataSource> source_;
  std::weak_ptr<TableViewDelegate> delegate_;
  std::map<std::string, std::function<std::shared_ptr<TableViewCell>()>> makers_;
  std::map<std::string, std::vector<std::shared_ptr<TableViewCell>>> usedCells_;
  std::vector<Section> sections_;
  bool hasRead_ = false;
  int openBatches_ = 0;
  std::map<std::int64_t, RowChanges> changes_;  // by section, of the open batch
  bool allowsSelection_ = true;
  std::shared_ptr<RefreshControl> refreshControl_;
  Insets contentInset_;
  Insets scrollIndicatorInsets_;
  double contentOffset_ = 0;
  std::optional<double> backgroundInset_;
};

}  // namespace wifi_profile::toolkit
