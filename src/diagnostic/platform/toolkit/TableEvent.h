// The events of a table that a screen receives.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <variant>
#include <vector>

#include "diagnostic/platform/toolkit/TableBatch.h"

namespace wifi_profile::toolkit {

// The position of a row. Section and row count from 0.
struct IndexPath {
  std::int64_t section = 0;
  std::int64_t row = 0;
  auto operator<=>(const IndexPath&) const = default;
};

enum class RowAnimation { fade = 0 };
// How far a table scrolls. `none`: only as far as needed to make the row visible.
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
// A batch did not add up in this section, so all rows were read again. The fields are numbers of
// rows.
struct Repaired {
  std::int64_t section;
  std::int64_t before;
  std::int64_t deleted;
  std::int64_t inserted;
  std::int64_t expected;  // reported by the data source now
};

// All rows have been read: when the table first appears, on a reload, or in a repair. Sent
// afterwards.
struct RowsWereRead {};
// The outermost batch has taken effect. Sent afterwards.
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
