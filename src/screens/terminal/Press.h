// What a key does, as a value.
#pragma once

#include <cstddef>
#include <string>
#include <variant>

#include "screens/terminal/Key.h"
#include "screens/terminal/TerminalState.h"

namespace wifi_profile {

namespace effect {

struct TapRow {
  toolkit::IndexPath path;
  bool operator==(const TapRow&) const = default;
};
struct TapNext {
  bool operator==(const TapNext&) const = default;
};
struct Pull {
  bool operator==(const Pull&) const = default;
};
struct AskForPower {
  bool operator==(const AskForPower&) const = default;
};
struct Type {  // the whole text of the alert's field
  std::string text;
  bool operator==(const Type&) const = default;
};
struct TapAction {  // of the alert
  std::size_t action;
  bool operator==(const TapAction&) const = default;
};
struct Stop {
  bool operator==(const Stop&) const = default;
};
struct Close {  // the report
  bool operator==(const Close&) const = default;
};
struct Repaint {
  bool operator==(const Repaint&) const = default;
};

}  // namespace effect

// What is to be done besides; nothing: monostate.
using Effect =
    std::variant<std::monostate, effect::TapRow, effect::TapNext, effect::Pull, effect::AskForPower,
                 effect::Type, effect::TapAction, effect::Stop, effect::Close, effect::Repaint>;

struct Pressed {
  TerminalState state;
  Effect effect;
};

// A key that can do nothing now leaves the reason in `state.notice`. Keys:
// in the list: arrows, j, k, PgUp, PgDn, Home, End, Enter, n, r, /, ?, q, and p while the
// radio is off;
// in a search: characters, the edit keys, Up and Down to the hit before and after, Enter, Esc;
// in a dialog: Tab, Shift-Tab, arrows between buttons, characters and the edit keys in its field.
// Enter in the field presses the last action that is enabled and not of cancel style. Esc presses
// the action of cancel style; where there is none it presses nothing, because nobody can know which
// answer is harmless, but goes to the first button. The question whether to stop goes on at Esc;
// in the report: moving keys, Enter opens and closes a finding, on the last line it closes the
// report, as Esc and q do.
Pressed pressed(const Shown& shown, TerminalState state, const Look& look, const Key& key);

// Does what an effect says to the toolkit's objects. Stopping, closing and repainting are the
// screen's own.
void perform(const Shown& shown, const Effect& effect);

// The state of a dialog that has just come up: in its field, or else on the last action that is
// enabled and not of cancel style.
DialogState openingState(const toolkit::Alert& alert);

}  // namespace wifi_profile
