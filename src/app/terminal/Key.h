// A key that was pressed, or a paste.
#pragma once

#include <string>
#include <utility>

namespace wifi_profile::terminal {

struct Key {
  enum class Name {
    character,  // `text` is the typed character, one code point of UTF-8
    paste,      // `text` is the pasted text, of any length
    enter,
    escape,
    tab,
    backTab,
    backspace,
    erase,  // deletes the character under the caret
    left,
    right,
    up,
    down,
    pageUp,
    pageDown,
    home,
    end,
    eraseToStart,  // Ctrl-U
    eraseWord,     // Ctrl-W
    repaint,       // Ctrl-L
  };
  Name name = Name::character;
  std::string text;

  bool operator==(const Key&) const = default;
  bool is(const char* character) const { return name == Name::character && text == character; }
};

inline Key typed(std::string character) { return {Key::Name::character, std::move(character)}; }

}  // namespace wifi_profile::terminal
