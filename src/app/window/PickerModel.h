// The table of networks as a Qt list model: headers, rows and footers, from top to bottom.
#pragma once

#include <QAbstractListModel>
#include <QRectF>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile::window {

// Follows one table. Turns a batch of the table into removals and insertions, which the view can
// animate, within one iteration of the event loop. A batch with more than 60 separate changes
// becomes a reset.
class PickerModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  enum class Kind { header, row, footer };
  Q_ENUM(Kind)

  // `table` may be null; then the list is empty.
  void setTable(const std::shared_ptr<toolkit::TableView>& table);

  // Call when all rows have been read anew.
  void reread();
  void rowsChanged(const toolkit::table_event::RowsChanged& changed);
  // Call when a spinner was switched or frames have changed.
  void headersChanged();

  // Returns the index of a row; -1: there is no such row.
  int indexOf(toolkit::IndexPath path) const;
  // Returns the enabled row at `index`; empty: there is no such row.
  std::optional<toolkit::IndexPath> enabledRow(int index) const;
  Q_INVOKABLE bool isEnabledRow(int index) const { return enabledRow(index).has_value(); }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 private:
  struct Entry {
    Kind kind;
    int section;
    int row = 0;
    double height = 0;  // points
    QString text = {};
    bool checked = false;
    bool enabled = true;
    bool first = false;  // first row of its group
    bool last = false;
    bool spinning = false;
    QRectF labelFrame = {};    // in the header
    QRectF spinnerFrame = {};  // in the header; empty: no spinner
  };
  using Entries = std::vector<Entry>;

  Entries readTable() const;
  Entry headerEntry(int section, const toolkit::View& header) const;
  // `formerIndexes`: of each wanted entry; -1: new.
  void animateTo(Entries wanted, const std::vector<int>& formerIndexes);
  void reset(Entries wanted);

  std::shared_ptr<toolkit::TableView> table_;
  Entries entries_;
};

}  // namespace wifi_profile::window
