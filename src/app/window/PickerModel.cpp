#include "app/window/PickerModel.h"

#include <algorithm>

#include "app/Content.h"
#include "runtime/SafeText.h"

namespace wifi_profile::window {
namespace {

// More separate changes cannot be followed by eye.
constexpr int kMostPieces = 60;

QString shown(const TextRef& text) {
  return text ? QString::fromStdString(runtime::safeText(text->string())) : QString();
}

QRectF rectangle(const toolkit::Rect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

int countPieces(const std::vector<bool>& marked) {
  int pieces = 0;
  bool inside = false;
  for (const bool mark : marked) {
    if (mark && !inside) ++pieces;
    inside = mark;
  }
  return pieces;
}

}  // namespace

void PickerModel::setTable(const std::shared_ptr<toolkit::TableView>& table) {
  if (table == table_) return;
  table_ = table;
  reset(readTable());
}

PickerModel::Entry PickerModel::headerEntry(int section, const toolkit::View& header) const {
  Entry entry{.kind = Kind::header,
              .section = section,
              .height = table_->rectOfHeader(section).size.height};
  if (const auto label = app::subviewOf<toolkit::Label>(header)) {
    entry.text = shown(label->text);
    entry.labelFrame = rectangle(label->frame());
  }
  if (const auto spinner = app::subviewOf<toolkit::Spinner>(header)) {
    entry.spinnerFrame = rectangle(spinner->frame());
    entry.spinning = spinner->isAnimating();
  }
  return entry;
}

PickerModel::Entries PickerModel::readTable() const {
  Entries entries;
  if (!table_) return entries;
  for (int section = 0; section < static_cast<int>(table_->numberOfSections()); ++section) {
    if (const auto header = table_->headerViewOfSection(section)) {
      entries.push_back(headerEntry(section, *header));
    }
    const auto& rows = table_->rowsOfSection(section);
    int number = 0;
    for (const auto& row : rows) {
      entries.push_back({.kind = Kind::row,
                         .section = section,
                         .row = number,
                         .height = toolkit::TableView::kRowHeight,
                         .text = shown(row.title),
                         .checked = row.image && row.image->name() == "blueCheckMark",
                         .enabled = row.userInteractionEnabled,
                         .first = number == 0,
                         .last = number + 1 == static_cast<int>(rows.size())});
      ++number;
    }
    entries.push_back(
        {.kind = Kind::footer, .section = section, .height = toolkit::TableView::kFooterHeight});
  }
  return entries;
}

void PickerModel::reset(Entries wanted) {
  beginResetModel();
  entries_ = std::move(wanted);
  endResetModel();
}

void PickerModel::reread() { reset(readTable()); }

void PickerModel::headersChanged() {
  if (!table_) return;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].kind != Kind::header) continue;
    const auto header = table_->headerViewOfSection(entries_[i].section);
    if (!header) continue;
    entries_[i] = headerEntry(entries_[i].section, *header);
    const QModelIndex changed = index(static_cast<int>(i));
    Q_EMIT dataChanged(changed, changed);
  }
}

void PickerModel::rowsChanged(const toolkit::table_event::RowsChanged& changed) {
  Entries wanted = readTable();
  std::vector<int> formerIndexes;
  formerIndexes.reserve(wanted.size());
  std::vector<std::int64_t> before;
  int section = -1;
  const auto indexOfEntry = [this](Kind kind, int inSection, std::int64_t row) {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
      return entry.kind == kind && entry.section == inSection && (row < 0 || entry.row == row);
    });
    return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
  };
  int firstRow = -1;
  for (const Entry& entry : wanted) {
    if (entry.section != section) {
      section = entry.section;
      firstRow = indexOfEntry(Kind::row, section, -1);
      const auto count = std::count_if(entries_.begin(), entries_.end(), [&](const Entry& old) {
        return old.kind == Kind::row && old.section == section;
      });
      const auto found = changed.changes.find(section);
      before = toolkit::rowsAfter(
          found == changed.changes.end() ? toolkit::RowChanges{} : found->second, count);
    }
    if (entry.kind != Kind::row) {
      formerIndexes.push_back(indexOfEntry(entry.kind, section, -1));
      continue;
    }
    const auto row = static_cast<std::size_t>(entry.row);
    const std::int64_t old = row < before.size() ? before[row] : toolkit::kNewRow;
    formerIndexes.push_back(old == toolkit::kNewRow ? -1 : firstRow + static_cast<int>(old));
  }
  animateTo(std::move(wanted), formerIndexes);
}

// Removes the entries that are not wanted, from the end, and then inserts the new ones, from the
// start. The remaining entries keep their order.
void PickerModel::animateTo(Entries wanted, const std::vector<int>& formerIndexes) {
  std::vector<bool> goes(entries_.size(), true);
  std::vector<bool> comes(wanted.size(), false);
  for (std::size_t i = 0; i < formerIndexes.size(); ++i) {
    if (formerIndexes[i] < 0) {
      comes[i] = true;
    } else {
      goes[static_cast<std::size_t>(formerIndexes[i])] = false;
    }
  }
  if (countPieces(goes) + countPieces(comes) > kMostPieces) {
    reset(std::move(wanted));
    return;
  }
  for (int last = static_cast<int>(goes.size()) - 1; last >= 0; --last) {
    if (!goes[static_cast<std::size_t>(last)]) continue;
    int first = last;
    while (first > 0 && goes[static_cast<std::size_t>(first - 1)]) --first;
    beginRemoveRows({}, first, last);
    entries_.erase(entries_.begin() + first, entries_.begin() + last + 1);
    endRemoveRows();
    last = first;
  }
  for (int first = 0; first < static_cast<int>(comes.size()); ++first) {
    if (!comes[static_cast<std::size_t>(first)]) continue;
    int last = first;
    while (last + 1 < static_cast<int>(comes.size()) && comes[static_cast<std::size_t>(last) + 1]) {
      ++last;
    }
    beginInsertRows({}, first, last);
    entries_.insert(entries_.begin() + first, wanted.begin() + first, wanted.begin() + last + 1);
    endInsertRows();
    first = last;
  }
  // The remaining rows have new numbers, and some are now the first or the last of their groups.
  entries_ = std::move(wanted);
  if (!entries_.empty()) Q_EMIT dataChanged(index(0), index(static_cast<int>(entries_.size()) - 1));
}

int PickerModel::indexOf(toolkit::IndexPath path) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.kind == Kind::row && entry.section == path.section && entry.row == path.row;
  });
  return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

std::optional<toolkit::IndexPath> PickerModel::enabledRow(int index) const {
  if (index < 0 || index >= rowCount()) return std::nullopt;
  const Entry& entry = entries_[static_cast<std::size_t>(index)];
  if (entry.kind != Kind::row || !entry.enabled) return std::nullopt;
  return toolkit::IndexPath{entry.section, entry.row};
}

int PickerModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

namespace {

enum Role {
  kKind = Qt::UserRole,
  kSection,
  kRow,
  kHeight,
  kText,
  kChecked,
  kEnabled,
  kFirst,
  kLast,
  kSpinning,
  kLabelFrame,
  kSpinnerFrame
};

}  // namespace

QVariant PickerModel::data(const QModelIndex& index, int role) const {
  const Entry& entry = entries_.at(static_cast<std::size_t>(index.row()));
  switch (role) {
    case kKind:
      return static_cast<int>(entry.kind);
    case kSection:
      return entry.section;
    case kRow:
      return entry.row;
    case kHeight:
      return entry.height;
    case kText:
      return entry.text;
    case kChecked:
      return entry.checked;
    case kEnabled:
      return entry.enabled;
    case kFirst:
      return entry.first;
    case kLast:
      return entry.last;
    case kSpinning:
      return entry.spinning;
    case kLabelFrame:
      return entry.labelFrame;
    case kSpinnerFrame:
      return entry.spinnerFrame;
    default:
      return {};
  }
}

QHash<int, QByteArray> PickerModel::roleNames() const {
  return {{kKind, "kind"},
          {kSection, "section"},
          {kRow, "row"},
          {kHeight, "entryHeight"},
          {kText, "text"},
          {kChecked, "checked"},
          {kEnabled, "interactive"},
          {kFirst, "first"},
          {kLast, "last"},
          {kSpinning, "spinning"},
          {kLabelFrame, "labelFrame"},
          {kSpinnerFrame, "spinnerFrame"}};
}

}  // namespace wifi_profile::window
