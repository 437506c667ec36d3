// From what a terminal sends to what a person pressed.
#pragma once

#include <optional>
#include <string>

#include "screens/terminal/Key.h"

namespace wifi_profile {

// Puts bytes together to characters, across any pauses between them, and what is pasted to one key.
// Bytes that are not UTF-8 are dropped, and so are control characters that are no keys.
class KeyDecoder {
 public:
  std::optional<Key> byte(unsigned char byte);
  // A key that the terminal has a sequence for. Within a paste it is none.
  std::optional<Key> named(Key::Name name);
  void pasteBegins();
  std::optional<Key> pasteEnds();

 private:
  std::string partial_;  // of a character
  std::optional<std::string> paste_;
};

}  // namespace wifi_profile
