// A text of one line with a caret, and what keys do to it.
#pragma once

#include <cstddef>
#include <string>

#include "screens/terminal/Key.h"

namespace wifi_profile {

struct EditedText {
  std::string text;       // valid UTF-8 without control characters
  std::size_t caret = 0;  // bytes before it; between two characters
  bool operator==(const EditedText&) const = default;
};

// The text after `key`; the same where the key does not edit. Pasted line ends and other control
// characters are dropped. A character and the marks on it are one step.
EditedText edited(EditedText text, const Key& key);

}  // namespace wifi_profile
