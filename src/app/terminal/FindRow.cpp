#include <cwctype>

#include "app/terminal/ListPlace.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile::terminal {
namespace {

// Returns the code points in lower case.
std::u32string folded(std::string_view text) {
  std::u32string points;
  for (; !text.empty(); text.remove_prefix(firstCodePoint(text).length)) {
    points +=
        static_cast<char32_t>(std::towlower(static_cast<std::wint_t>(firstCodePoint(text).value)));
  }
  return points;
}

}  // namespace

std::optional<toolkit::IndexPath> rowWithText(const toolkit::TableView& table,
                                              const std::string& text, toolkit::IndexPath from,
                                              Direction direction) {
  const auto& rows = table.rowsOfSection(from.section);
  const auto count = static_cast<std::int64_t>(rows.size());
  const std::u32string wanted = folded(text);
  const std::int64_t step = direction == Direction::down ? 1 : count - 1;
  for (std::int64_t tried = 0; tried < count; ++tried) {
    const std::int64_t row = (from.row + tried * step) % count;
    const auto& there = rows[static_cast<std::size_t>(row)];
    if (!there.title || !there.userInteractionEnabled) continue;
    if (folded(there.title->string()).find(wanted) != std::u32string::npos) {
      return toolkit::IndexPath{from.section, row};
    }
  }
  return std::nullopt;
}

}  // namespace wifi_profile::terminal
