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

#include "platform/Text.h"
#include "platform/toolkit/RefreshControl.h"
#include "platform/toolkit/TableBatch.h"
#include "platform/toolkit/TableEvent.h"
#include "platform/toolkit/TableViewCell.h"
#include "platform/toolkit/View.h"

namespace wifi_profile::toolkit {

class TableView;

// A height that the table chooses by itself.
inline constexpr double kAutomaticDimension = -1;

// Where a table has its rows from.
class TableViewDataSource {
 public:
  virtual std::int64_t numberOfSectionsInTableView(const TableView& table) = 0;
  virtual std::int64_t tableViewNumberOfRowsInSection(const TableView& table,
                                                      std::int64_t section) = 0;
  // A cell that the table handed out, filled.
  virtual std::shared_ptr<TableViewCell> tableViewCellForRowAtIndexPath(TableView& table,
                                                                        IndexPath path) = 0;

 protected:
  ~TableViewDataSource() = default;
};

// What else a table asks and tells.
class TableViewDelegate {
 public:
  virtual double tableViewHeightForHeaderInSection(const TableView& table,
                                                   std::int64_t section) = 0;
  // null: no header.
  virtual std::shared_ptr<View> tableViewViewForHeaderInSection(const TableView& table,
                                                                std::int64_t section) = 0;
  virtual double tableViewHeightForFooterInSection(const TableView& table,
                                                   std::int64_t section) = 0;
  // A person has tapped the row.
  virtual void tableViewDidSelectRowAtIndexPath(TableView& table, IndexPath path) = 0;

 protected:
  ~TableViewDelegate() = default;
};

// Keeps the rows that it shows, as its data source gave them when they came; it asks for a row
// again only when it is inserted or everything is reloaded. Changes are told to the screen.
//
// Batches nest and take effect, together, when the outermost one ends. A batch that does not
// add up is thrown away: the table then reads all rows anew and tells the screen which sections
// were repaired. A batch of a table that has not read its rows yet changes nothing. Header views
// are asked for when the table appears, at a reload, when a header is scrolled back, and at the end
// of a batch where a section has none.
class TableView final : public View {
 public:
  // A row as the table shows it.
  struct Row {
    TextRef title;  // nil: none
    ImageRef image;
    bool userInteractionEnabled = true;
  };

  using View::View;

  // Not kept alive.
  void setDataSource(std::weak_ptr<TableViewDataSource> source) { source_ = std::move(source); }
  void setDelegate(std::weak_ptr<TableViewDelegate> delegate) { delegate_ = std::move(delegate); }

  template <class Cell>
  void registerCell(const std::string& identifier) {
    makers_[identifier] = [identifier] {
      return std::make_shared<Cell>(CellStyle::plain, identifier);
    };
  }
  // A cell of a registered kind: a used one as it is, or a new one.
  std::shared_ptr<TableViewCell> dequeueReusableCell(const std::string& identifier, IndexPath path);

  void reloadData();
  void beginUpdates();
  void endUpdates();
  // Inside a batch.
  void insertRows(const std::vector<IndexPath>& rows, RowAnimation animation);
  void deleteRows(const std::vector<IndexPath>& rows, RowAnimation animation);

  bool allowsSelection() const { return allowsSelection_; }
  void setAllowsSelection(bool allows);
  void deselectRow(IndexPath path, bool animated);
  // Nothing moves when there is no such row.
  void scrollToRow(IndexPath path, ScrollPosition position, bool animated);

  // null: none. Another one takes its place.
  const std::shared_ptr<RefreshControl>& refreshControl() const { return refreshControl_; }
  void setRefreshControl(std::shared_ptr<RefreshControl> control);

  std::int64_t numberOfSections() const { return static_cast<std::int64_t>(sections_.size()); }
  // Empty where there is no such section.
  const std::vector<Row>& rowsOfSection(std::int64_t section) const;
  // null: none.
  std::shared_ptr<View> headerViewOfSection(std::int64_t section) const;

  // Where things stand in the table's content, in points.
  Rect rectOfHeader(std::int64_t section) const;
  Rect rectOfRow(IndexPath path) const;
  double contentHeight() const;

  const Insets& contentInset() const { return contentInset_; }
  void setContentInset(Insets insets);
  const Insets& scrollIndicatorInsets() const { return scrollIndicatorInsets_; }
  void setScrollIndicatorInsets(Insets insets) { scrollIndicatorInsets_ = insets; }
  // What of the content stands at the table's top edge. Follows the content when that shrinks.
  double contentOffset() const { return contentOffset_; }

  // How far the rows' background stands in from the sides; nothing: this table does not say.
  std::optional<double> backgroundInset() const { return backgroundInset_; }
  void setBackgroundInset(std::optional<double> inset) { backgroundInset_ = inset; }

  // The table has come onto the screen: reads its rows, if it has not yet.
  void appear();

  // What a person does. A row that is not there, is disabled, or lies in a table without selection
  // cannot be tapped: nothing happens.
  bool canTap(IndexPath path) const;
  void tap(IndexPath path);
  // What a person does: scrolls a header away and back.
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
