// The arithmetic of a table's batches: deletions in old rows, insertions in new ones.
#pragma once

#include <cstdint>
#include <vector>

namespace wifi_profile::toolkit {

// The rows of one section that a batch names, in the order in which it named them: deletions as the
// rows were when the batch began, insertions as they will be when it ends.
struct RowChanges {
  std::vector<std::int64_t> deleted;
  std::vector<std::int64_t> inserted;
};

// Whether `before` rows, changed so, are `expected` rows: the counts agree, no row is named twice,
// and each is one of the rows that there were, or will be.
bool addsUp(const RowChanges& changes, std::int64_t before, std::int64_t expected);

// For each row after changes that add up: which of the `before` rows it was, or kNewRow.
inline constexpr std::int64_t kNewRow = -1;
std::vector<std::int64_t> rowsAfter(const RowChanges& changes, std::int64_t before);

}  // namespace wifi_profile::toolkit
