#include "diagnostic/platform/toolkit/TableBatch.h"

#include <algorithm>

namespace wifi_profile::toolkit {
namespace {

std::int64_t countOf(const std::vector<std::int64_t>& rows) {
  return static_cast<std::int64_t>(rows.size());
}

std::vector<std::int64_t> inOrder(std::vector<std::int64_t> rows) {
  std::sort(rows.begin(), rows.end());
  return rows;
}

bool areDistinctBelow(const std::vector<std::int64_t>& rows, std::int64_t end) {
  const auto sorted = inOrder(rows);
  return std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end() &&
         (sorted.empty() || (sorted.front() >= 0 && sorted.back() < end));
}

}  // namespace

bool addsUp(const RowChanges& changes, std::int64_t before, std::int64_t expected) {
  return before - countOf(changes.deleted) + countOf(changes.inserted) == expected &&
         areDistinctBelow(changes.deleted, before) && areDistinctBelow(changes.inserted, expected);
}

std::vector<std::int64_t> rowsAfter(const RowChanges& changes, std::int64_t before) {
  const auto deleted = inOrder(changes.deleted);
  const auto inserted = inOrder(changes.inserted);
  std::vector<std::int64_t> rows;
  rows.reserve(static_cast<std::size_t>(before) - deleted.size() + inserted.size());
  auto nextDeleted = deleted.begin();
  auto nextInserted = inserted.begin();
  const auto placeInsertions = [&] {
    for (; nextInserted != inserted.end() && *nextInserted == countOf(rows); ++nextInserted) {
      rows.push_back(kNewRow);
    }
  };
  for (std::int64_t row = 0; row < before; ++row) {
    if (nextDeleted != deleted.end() && *nextDeleted == row) {
      ++nextDeleted;
      continue;
    }
    placeInsertions();
    rows.push_back(row);
  }
  placeInsertions();
  return rows;
}

}  // namespace wifi_profile::toolkit
