#include <limits>

#include "app/terminal/PressParts.h"

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
        lines(linesOf(table, isRoomy(look.extent))),
        height(bodyLines(look.extent)) {}

  ListPlace by(const ListPlace& place, std::int64_t rows) const {
    return movedBy(table, lines, place, height, rows);
  }
  ListPlace to(const ListPlace& place, toolkit::IndexPath row) const {
    return movedTo(table, lines, place, height, row);
  }
};

bool moved(const List& list, ListPlace& place, const Key& key) {
  const std::int64_t page = std::max(1, list.height - 1);
  if (key.name == Name::down || key.is("j")) {
    place = list.by(place, 1);
  } else if (key.name == Name::up || key.is("k")) {
    place = list.by(place, -1);
  } else if (key.name == Name::pageDown) {
    place = list.by(place, page);
  } else if (key.name == Name::pageUp) {
    place = list.by(place, -page);
  } else if (key.name == Name::home) {
    place = list.to(place, {0, 0});
  } else if (key.name == Name::end) {
    constexpr auto kLast = std::numeric_limits<std::int64_t>::max();
    place = list.to(place, {kLast, kLast});
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

Effect goOn(const app::Content& content, TerminalState& state) {
  const auto& item = content.item;
  if (!item || !item->rightBarButtonItem()) return {};
  if (item->rightBarButtonItem()->isEnabled()) return effect::TapNext{};
  state.notice = app::screenText("CHOOSE_FIRST");
  return {};
}

Effect refresh(const Shown& shown, TerminalState& state) {
  const auto& control = shown.content.table->refreshControl();
  if (control && !control->isRefreshing()) return effect::Pull{};
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

Effect pressedInList(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  const List list(shown, look);
  if (openedHelpOrQuestion(state, key) || moved(list, state.list, key)) return {};
  if (key.name == Name::enter) return choose(list, state);
  if (key.is("n")) return goOn(shown.content, state);
  if (key.is("r")) return refresh(shown, state);
  if (key.is("p") && canAskForPower(shown)) return effect::AskForPower{};
  if (key.is("/")) state.find = FindState{.edit = {}, .origin = state.list};
  return {};
}

Effect pressedInFind(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
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
