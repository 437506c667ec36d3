// Decodes a terminal's input into keys.
#pragma once

#include <optional>
#include <string>

#include "app/terminal/Key.h"

namespace wifi_profile::terminal {

// Assembles bytes into characters, regardless of pauses between them, and a paste into one key.
// Drops invalid UTF-8 and control characters that are not keys.
class KeyDecoder {
 public:
  std::optional<Key> byte(unsigned char byte);
  // Passes a key that the terminal sends as a sequence. Within a paste it is ignored.
  std::optional<Key> named(Key::Name name);
  void pasteBegins();
  std::optional<Key> pasteEnds();

 private:
  std::string partial_;  // incomplete character
  std::optional<std::string> paste_;
};

}  // namespace wifi_profile::terminal
