// The table of networks as a list of Qt's: headers, rows and footers, one below the other.
#pragma once

#include <QAbstractListModel>
#include <QRectF>
#include <QString>
#include <memory>
#include <vector>

#include "platform/toolkit/TableView.h"

namespace wifi_profile {

// Follows one table. A batch of the table becomes removals and insertions, so that they can be
// shown as such, all in one turn of the event loop; a batch of very many pieces becomes a reset.
class PickerModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  enum class Kind { header, row, footer };
  Q_ENUM(Kind)

  // null: the list is empty.
  void setTable(const std::shared_ptr<toolkit::TableView>& table);

  // All rows have been read anew.
  void reread();
  void rowsChanged(const toolkit::table_event::RowsChanged& changed);
  // A spinner was switched, or frames have moved.
  void headersChanged();

  // -1: there is no such row.
  int indexOf(toolkit::IndexPath path) const;
  // The row at `index`, which must be one.
  toolkit::IndexPath pathOf(int index) const;
  // Whether there is a row at `index`, and one that a person can do something with.
  Q_INVOKABLE bool isForPeople(int index) const;

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
    bool first = false;  // of its group
    bool last = false;
    bool spinning = false;
    QRectF labelFrame = {};    // in the header
    QRectF spinnerFrame = {};  // in the header; empty: none
  };
  using Entries = std::vector<Entry>;

  Entries readTable() const;
  Entry headerEntry(int section, const toolkit::View& header) const;
  void become(Entries wanted, const std::vector<int>& places);
  void reset(Entries wanted);

  std::shared_ptr<toolkit::TableView> table_;
  Entries entries_;
};

}  // namespace wifi_profile
