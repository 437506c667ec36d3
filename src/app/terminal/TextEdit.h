// A single-line text with a caret, and its edit keys.
#pragma once

#include <cstddef>
#include <string>

#include "app/terminal/Key.h"

namespace wifi_profile::terminal {

struct EditedText {
  std::string text;       // valid UTF-8 without control characters
  std::size_t caret = 0;  // in bytes; always between two characters
  bool operator==(const EditedText&) const = default;
};

// Returns the text after `key`; unchanged if the key does not edit. Drops line ends and other
// control characters of a paste. A character and its combining marks are one step.
EditedText edited(EditedText text, const Key& key);

}  // namespace wifi_profile::terminal
