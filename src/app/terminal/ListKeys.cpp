#include "app/terminal/ListKeys.h"

#include <limits>

namespace wifi_profile::terminal {
namespace {

using Name = Key::Name;

// The list's table and lines, for the key handlers.
struct List {
  const toolkit::TableView& table;
  const ListLines lines;
  const int height;

  List(const Shown& shown, const Look& look)
      : table(*shown.content.table),
        lines(linesOf(table, hasSpacing(look.extent))),
        height(bodyLines(look.extent)) {}

  ListPosition by(const ListPosition& position, std::int64_t rows) const {
    return movedBy(table, lines, position, height, rows);
  }
  ListPosition to(const ListPosition& position, toolkit::IndexPath row) const {
    return movedTo(table, lines, position, height, row);
  }
};

bool moved(const List& list, ListPosition& position, const Key& key) {
  const std::int64_t page = std::max(1, list.height - 1);
  if (key.name == Name::down || key.is("j")) {
    position = list.by(position, 1);
  } else if (key.name == Name::up || key.is("k")) {
    position = list.by(position, -1);
  } else if (key.name == Name::pageDown) {
    position = list.by(position, page);
  } else if (key.name == Name::pageUp) {
    position = list.by(position, -page);
  } else if (key.name == Name::home) {
    position = list.to(position, {0, 0});
  } else if (key.name == Name::end) {
    constexpr auto kLast = std::numeric_limits<std::int64_t>::max();
    position = list.to(position, {kLast, kLast});
  } else {
    return false;
  }
  return true;
}

Effect choose(const List& list, TerminalState& state) {
  state.list.moved = true;
  if (list.table.canTap(state.list.cursor)) return effect::TapRow{state.list.cursor};
  state.notice = app::screenText("LIST_BUSY");
  return {};
}

Effect tapNext(const app::Content& content, TerminalState& state) {
  const auto& item = content.item;
  if (!item || !item->rightBarButtonItem()) return {};
  if (item->rightBarButtonItem()->isEnabled()) return effect::TapNext{};
  state.notice = app::screenText("CHOOSE_FIRST");
  return {};
}

Effect refresh(const Shown& shown, TerminalState& state) {
  const auto& control = shown.content.table->refreshControl();
  if (control && !control->isRefreshing()) return effect::Refresh{};
  state.notice = canAskForPower(shown) ? app::emptyListText(shown.emptyList.why)
                                       : app::screenText("LIST_BUSY");
  return {};
}

// Moves the cursor to the nearest match from `from` on. Without a match, the cursor stays and a
// notice says so.
void findFrom(const List& list, TerminalState& state, toolkit::IndexPath from,
              Direction direction) {
  const auto hit = rowWithText(list.table, state.find->edit.text, from, direction);
  if (hit) {
    state.list = list.to(state.list, *hit);
  } else {
    state.notice = app::screenText("NAME_NOT_FOUND");
  }
}

void findNext(const List& list, TerminalState& state, Direction direction) {
  const auto rows =
      static_cast<std::int64_t>(list.table.rowsOfSection(state.list.cursor.section).size());
  if (rows == 0) return;
  toolkit::IndexPath from = state.list.cursor;
  from.row = (from.row + (direction == Direction::down ? 1 : rows - 1)) % rows;
  findFrom(list, state, from, direction);
}

}  // namespace

Effect handleListKey(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  const List list(shown, look);
  if (handleHelpOrQuit(state, key) || moved(list, state.list, key)) return {};
  if (key.name == Name::enter) return choose(list, state);
  if (key.is("n")) return tapNext(shown.content, state);
  if (key.is("r")) return refresh(shown, state);
  if (key.is("p") && canAskForPower(shown)) return effect::AskForPower{};
  if (key.is("/")) state.find = FindState{.edit = {}, .origin = state.list};
  return {};
}

Effect handleFindKey(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  const List list(shown, look);
  switch (key.name) {
    case Name::enter:
      state.find.reset();
      break;
    case Name::escape:
      state.list = state.find->origin;
      state.find.reset();
      break;
    case Name::down:
      findNext(list, state, Direction::down);
      break;
    case Name::up:
      findNext(list, state, Direction::up);
      break;
    default: {
      EditedText text = edited(state.find->edit, key);
      if (text.text != state.find->edit.text) {
        state.find->edit = std::move(text);
        findFrom(list, state, state.find->origin.cursor, Direction::down);
      } else {
        state.find->edit = std::move(text);
      }
      break;
    }
  }
  return {};
}

}  // namespace wifi_profile::terminal
