// Draws a dialog: the question whether to stop, and an alert.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/terminal/Frame.h"
#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

// A box over the middle of the screen.
struct Dialog {
  struct Button {
    std::string title;
    bool enabled = true;
  };
  std::string message;
  struct Field {
    EditedText edit;
    std::string placeholder;
  };
  std::optional<Field> field;
  std::vector<Button> buttons;
  std::size_t focus = 0;  // index among the field, if there is one, and the buttons
};
void putDialog(Frame& frame, const Look& look, const Dialog& dialog);

Dialog stopQuestion(std::size_t focus);
Dialog dialogOf(const toolkit::Alert& alert, const DialogState& state);

}  // namespace wifi_profile::terminal
