// Computes what a key does, as a value.
#pragma once

#include <cstddef>
#include <string>
#include <variant>

#include "app/terminal/Key.h"
#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

namespace effect {

struct TapRow {
  toolkit::IndexPath path;
  bool operator==(const TapRow&) const = default;
};
struct TapNext {
  bool operator==(const TapNext&) const = default;
};
struct Refresh {
  bool operator==(const Refresh&) const = default;
};
struct AskForPower {
  bool operator==(const AskForPower&) const = default;
};
struct Type {  // the new text of the alert's field
  std::string text;
  bool operator==(const Type&) const = default;
};
struct TapAction {  // an action of the alert
  std::size_t action;
  bool operator==(const TapAction&) const = default;
};
struct Stop {
  bool operator==(const Stop&) const = default;
};
struct Close {  // closes the report
  bool operator==(const Close&) const = default;
};
struct Repaint {
  bool operator==(const Repaint&) const = default;
};

}  // namespace effect

// What to do besides changing the state; monostate: no effect.
using Effect = std::variant<std::monostate, effect::TapRow, effect::TapNext, effect::Refresh,
                            effect::AskForPower, effect::Type, effect::TapAction, effect::Stop,
                            effect::Close, effect::Repaint>;

struct KeyResult {
  TerminalState state;
  Effect effect;
};

// Handles a key. If the key cannot act now, `state.notice` gives the reason. Keys:
// in the list: arrows, j, k, PgUp, PgDn, Home, End, Enter, n, r, /, ?, q, and p while the radio is
// off;
// in a search: characters, the edit keys, Up and Down to the previous and next match, Enter, Esc;
// in a dialog: Tab, Shift-Tab, arrows between buttons, characters and the edit keys in its field.
// Enter in the field performs the last action that is enabled and not of cancel style. Esc performs
// the action of cancel style. Without such an action, Esc performs no action, because no answer is
// known to be harmless, and moves the focus to the first button. Esc answers the question whether
// to stop with "continue";
// in the report: the moving keys; Enter opens and closes a finding; Enter on the last line, Esc and
// q close the report.
KeyResult handleKey(const Shown& shown, TerminalState state, const Look& look, const Key& key);

// Applies an effect to the toolkit's objects. The screen itself handles Stop, Close and Repaint.
void applyEffect(const Shown& shown, const Effect& effect);

// Handles `?` and `q`, which work in most modes. Returns true if it handled the key.
bool handleHelpOrQuit(TerminalState& state, const Key& key);

}  // namespace wifi_profile::terminal
