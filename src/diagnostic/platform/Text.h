// Texts as values, the comparison of network names, and UTF-8 decoding.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "diagnostic/platform/Object.h"

namespace wifi_profile {

// An immutable text. Its bytes should be UTF-8, but a name received over the air may contain any
// bytes.
class Text final : public Object {
 public:
  explicit Text(std::string text) : text_(std::move(text)) {}
  const std::string& string() const { return text_; }

 private:
  const std::string text_;
};

using TextRef = std::shared_ptr<const Text>;  // nil: no text

inline TextRef makeText(std::string_view text) {
  return std::make_shared<const Text>(std::string(text));
}

// Returns whether two names are equal, bytewise and case-sensitive. Nil is equal to no name, not
// even to nil.
bool equalNames(const TextRef& one, const TextRef& other);

// Returns whether `name` ends with `suffix`, ignoring the case of ASCII letters. `suffix` must be
// in lower case. False for nil.
bool endsWithIgnoringCase(const TextRef& name, std::string_view suffix);

// Returns the number of Unicode code points. A byte that is not part of valid UTF-8 counts as one.
std::size_t characterCount(std::string_view text);

// Returns the code point at the front of `text`. `length` is its number of bytes. If the front is
// not valid UTF-8 (overlong forms, surrogates and values beyond U+10FFFF included), returns {false,
// the first byte, 1}. `text` must not be empty.
struct CodePoint {
  bool valid;
  char32_t value;
  std::size_t length;
};
CodePoint firstCodePoint(std::string_view text);

bool isValidUtf8(std::string_view text);

// Returns `text` unchanged if it has at most `bytes` bytes. Otherwise cuts it at a character
// boundary, at most `bytes` bytes from the front, and appends an ellipsis.
std::string shortened(std::string_view text, std::size_t bytes);

}  // namespace wifi_profile
