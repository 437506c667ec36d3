// What a person presses.
#pragma once

#include <string>
#include <utility>

namespace wifi_profile {

struct Key {
  enum class Name {
    character,  // `text` is what was typed, one code point of UTF-8
    paste,      // `text` is what was pasted, of any length
    enter,
    escape,
    tab,
    backTab,
    backspace,
    erase,  // what is under the caret
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

}  // namespace wifi_profile
