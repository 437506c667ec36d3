// The arithmetic of table batches: deletions refer to old rows, insertions to new rows.
#pragma once

#include <cstdint>
#include <vector>

namespace wifi_profile::toolkit {

// The rows of one section that a batch names, in the order in which it names them. Deletions count
// the rows as they were when the batch began, insertions as they are when it ends.
struct RowChanges {
  std::vector<std::int64_t> deleted;
  std::vector<std::int64_t> inserted;
};

// Returns whether the changes turn `before` rows into `expected` rows: the counts agree, no row is
// named twice, every deleted row existed before, and every inserted row exists afterwards.
bool addsUp(const RowChanges& changes, std::int64_t before, std::int64_t expected);

// Returns for each row after the changes, which must add up, its number among the `before` rows, or
// kNewRow.
inline constexpr std::int64_t kNewRow = -1;
std::vector<std::int64_t> rowsAfter(const RowChanges& changes, std::int64_t before);

}  // namespace wifi_profile::toolkit
