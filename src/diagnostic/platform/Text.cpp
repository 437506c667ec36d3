#include "diagnostic/platform/Text.h"

#include <algorithm>

namespace wifi_profile {
namespace {

char lowerCased(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

}  // namespace

bool equalNames(const TextRef& one, const TextRef& other) {
  return one && other && one->string() == other->string();
}

bool endsWithIgnoringCase(const TextRef& name, std::string_view suffix) {
  if (!name || name->string().size() < suffix.size()) return false;
  return std::equal(suffix.rbegin(), suffix.rend(), name->string().rbegin(),
                    [](char expected, char found) { return expected == lowerCased(found); });
}

CodePoint firstCodePoint(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const CodePoint invalid{false, lead, 1};
  if (lead < 0x80) return {true, lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return invalid;
  char32_t value = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuation(text[i])) return invalid;
    value = (value << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
  const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
  if (overlong || surrogate || value > 0x10FFFF) return invalid;
  return {true, value, length};
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(firstCodePoint(text).length);
  return count;
}

bool isValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const CodePoint point = firstCodePoint(text);
    if (!point.valid) return false;
    text.remove_prefix(point.length);
  }
  return true;
}

std::string shortened(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return std::string(text);
  while (bytes > 0 && isContinuation(text[bytes])) --bytes;
  return std::string(text.substr(0, bytes)) + "…";
}

}  // namespace wifi_profile
