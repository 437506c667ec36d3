#include "app/terminal/AlertKeys.h"

#include "diagnostic/platform/toolkit/Alert.h"

namespace wifi_profile::terminal {
namespace {

using Name = Key::Name;
using toolkit::ActionStyle;
using toolkit::Alert;

// The parts of a dialog are its field, if there is one, and then its actions.
std::size_t fieldParts(const Alert& alert) { return alert.textFields().empty() ? 0 : 1; }
std::size_t partCount(const Alert& alert) { return fieldParts(alert) + alert.actions().size(); }

bool canHaveFocus(const Alert& alert, std::size_t part) {
  return part < fieldParts(alert) || alert.actions()[part - fieldParts(alert)]->isEnabled();
}

// Returns the next part that can have the focus; the same part if there is no other.
std::size_t nextPart(const Alert& alert, std::size_t part, bool forwards) {
  const std::size_t count = partCount(alert);
  for (std::size_t tried = 0; tried < count; ++tried) {
    part = (part + (forwards ? 1 : count - 1)) % count;
    if (canHaveFocus(alert, part)) break;
  }
  return part;
}

// Returns the next button for an arrow key, without wrapping around and without entering the field.
std::size_t nextButton(const Alert& alert, std::size_t part, bool forwards) {
  const std::size_t next = nextPart(alert, part, forwards);
  return next < fieldParts(alert) || (next > part) != forwards ? part : next;
}

// Returns the last action that is enabled and not of cancel style.
std::optional<std::size_t> mainAction(const Alert& alert) {
  for (std::size_t i = alert.actions().size(); i-- > 0;) {
    const auto& action = *alert.actions()[i];
    if (action.isEnabled() && action.style() != ActionStyle::cancel) return i;
  }
  return std::nullopt;
}

Effect tapAction(const Alert& alert, std::optional<std::size_t> action) {
  if (!action || !alert.actions()[*action]->isEnabled()) return {};
  return effect::TapAction{*action};
}

Effect escape(const Alert& alert, DialogState& dialog) {
  for (std::size_t i = 0; i < alert.actions().size(); ++i) {
    if (alert.actions()[i]->style() == ActionStyle::cancel) return tapAction(alert, i);
  }
  if (!alert.actions().empty() && alert.actions().front()->isEnabled()) {
    dialog.focus = fieldParts(alert);
  }
  return {};
}

Effect editField(DialogState& dialog, const Key& key) {
  EditedText text = edited(dialog.edit, key);
  const bool changed = text.text != dialog.edit.text;
  dialog.edit = std::move(text);
  if (!changed) return {};
  return effect::Type{dialog.edit.text};
}

}  // namespace

DialogState initialState(const Alert& alert) {
  DialogState state;
  if (!alert.textFields().empty()) {
    const std::string& text = alert.textFields().front()->text;
    state.edit = {.text = text, .caret = text.size()};
  } else if (const auto action = mainAction(alert)) {
    state.focus = *action;
  }
  return state;
}

Effect handleAlertKey(const Shown& shown, TerminalState& state, const Key& key) {
  const Alert& alert = *shown.alert;
  DialogState& dialog = state.dialog;
  if (partCount(alert) == 0) return {};
  const bool inField = dialog.focus < fieldParts(alert);
  switch (key.name) {
    case Name::tab:
    case Name::down:
      dialog.focus = nextPart(alert, dialog.focus, true);
      return {};
    case Name::backTab:
    case Name::up:
      dialog.focus = nextPart(alert, dialog.focus, false);
      return {};
    case Name::escape:
      return escape(alert, dialog);
    case Name::enter:
      return tapAction(
          alert, inField ? mainAction(alert) : std::optional(dialog.focus - fieldParts(alert)));
    default:
      break;
  }
  if (inField) return editField(dialog, key);
  if (key.name == Name::left || key.name == Name::right) {
    dialog.focus = nextButton(alert, dialog.focus, key.name == Name::right);
  } else {
    handleHelpOrQuit(state, key);
  }
  return {};
}

}  // namespace wifi_profile::terminal
