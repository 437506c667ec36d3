// Texts as values, and what names of networks need: equality in which nil equals nothing.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Object.h"

namespace wifi_profile {

// An immutable text. Its bytes are meant to be UTF-8, but names from the air may be anything.
class Text final : public Object {
 public:
  explicit Text(std::string text) : text_(std::move(text)) {}
  const std::string& string() const { return text_; }

  // A hash of the bytes, reckoned once for each object. It differs from process to process: its
  // seed is random, so that nobody can prepare names that fall on one another. Any thread.
  std::uint64_t hash() const {
    const std::uint64_t known = hash_.load(std::memory_order_relaxed);
    return known != 0 ? known : reckonHash();
  }

 private:
  std::uint64_t reckonHash() const;

  const std::string text_;
  mutable std::atomic<std::uint64_t> hash_{0};  // 0: not reckoned yet
};

using TextRef = std::shared_ptr<const Text>;  // nil: no text

inline TextRef makeText(std::string_view text) {
  return std::make_shared<const Text>(std::string(text));
}

// Exact, case-sensitive equality of two names. A nil on either side equals nothing, not even nil.
bool equalNames(const TextRef& one, const TextRef& other);

// Whether `name` ends with `suffix`, ASCII letters of either case being equal. NO for nil.
// `suffix` must be written in lower case.
bool endsWithIgnoringCase(const TextRef& name, std::string_view suffix);

// Number of Unicode code points; a byte that is no part of valid UTF-8 counts as one.
std::size_t characterCount(std::string_view text);

// Reads the code point at the front of `text`. `length` is the number of bytes it takes.
// A front that is not valid UTF-8 (also: overlong, surrogate, beyond U+10FFFF) gives
// {false, the first byte, 1}. `text` must not be empty.
struct CodePoint {
  bool valid;
  char32_t value;
  std::size_t length;
};
CodePoint firstCodePoint(std::string_view text);

bool isValidUtf8(std::string_view text);

// A text of at most `bytes` bytes as it is; of a longer one the front, up to the end of a
// character, and an ellipsis.
std::string shortened(std::string_view text, std::size_t bytes);

}  // namespace wifi_profile
