// What happens to a table, as a screen is told of it.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <variant>
#include <vector>

#include "platform/toolkit/TableBatch.h"

namespace wifi_profile::toolkit {

// The place of a row. Both count from 0.
struct IndexPath {
  std::int64_t section = 0;
  std::int64_t row = 0;
  auto operator<=>(const IndexPath&) const = default;
};

enum class RowAnimation { fade = 0 };
// How far a scroll goes: no further than it takes to make the row visible.
enum class ScrollPosition { none = 0 };

namespace table_event {

struct Reloaded {};
struct BatchBegan {};
struct BatchEnded {};
struct RowsInserted {
  const std::vector<IndexPath>& rows;
  RowAnimation animation;
};
struct RowsDeleted {
  const std::vector<IndexPath>& rows;
  RowAnimation animation;
};
struct Scrolled {
  IndexPath row;
  ScrollPosition position;
  bool animated;
};
struct Deselected {
  IndexPath row;
  bool animated;
};
struct AllowsSelectionWasSet {
  bool value;
};
struct RemovedFromScreen {};
// A batch did not add up in this section: all rows were read anew. Numbers of rows.
struct Repaired {
  std::int64_t section;
  std::int64_t before;
  std::int64_t deleted;
  std::int64_t inserted;
  std::int64_t expected;  // what the data source says there are now
};

// All rows have been read: at the table's first showing, at a reload, in a repair. After it.
struct RowsWereRead {};
// The outermost batch has taken effect. After it.
struct RowsChanged {
  const std::map<std::int64_t, RowChanges>& changes;  // by section
};

}  // namespace table_event

using TableEvent =
    std::variant<table_event::Reloaded, table_event::BatchBegan, table_event::BatchEnded,
                 table_event::RowsInserted, table_event::RowsDeleted, table_event::Scrolled,
                 table_event::Deselected, table_event::AllowsSelectionWasSet,
                 table_event::RemovedFromScreen, table_event::Repaired, table_event::RowsWereRead,
                 table_event::RowsChanged>;

}  // namespace wifi_profile::toolkit
