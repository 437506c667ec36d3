#include "runtime/SafeText.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::runtime {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Unicode general categories Cc, Zl and Zp, and the characters of Cf that are invisible or reorder
// text. The joiners U+200C and U+200D are allowed: Persian and emoji need them.
constexpr std::array<Range, 14> kUnsafe{{{0x00, 0x1F},
                                         {0x7F, 0x9F},
                                         {0xAD, 0xAD},
                                         {0x061C, 0x061C},
                                         {0x180E, 0x180E},
                                         {0x200B, 0x200B},
                                         {0x200E, 0x200F},
                                         {0x2028, 0x202E},
                                         {0x2060, 0x206F},
                                         {0xFEFF, 0xFEFF},
                                         {0xFFF9, 0xFFFB},
                                         {0x13430, 0x1343F},
                                         {0x1D173, 0x1D17A},
                                         {0xE0000, 0xE0FFF}}};

std::string formatted(const char* format, unsigned value) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

}  // namespace

bool isUnsafeToShow(char32_t codePoint) {
  return std::any_of(kUnsafe.begin(), kUnsafe.end(), [codePoint](const Range& range) {
    return codePoint >= range.first && codePoint <= range.last;
  });
}

std::string validUtf8(std::string_view text) {
  if (isValidUtf8(text)) return std::string(text);
  std::string valid;
  while (!text.empty()) {
    const CodePoint point = firstCodePoint(text);
    if (!point.valid) {
      valid += formatted("\\x%02X", static_cast<unsigned>(point.value));
    } else if (point.value == U'\\') {
      valid += "\\\\";
    } else {
      valid += text.substr(0, point.length);
    }
    text.remove_prefix(point.length);
  }
  return valid;
}

std::string safeText(std::string_view text) {
  const std::string valid = validUtf8(text);
  std::string safe;
  for (std::string_view rest = valid; !rest.empty();) {
    const CodePoint point = firstCodePoint(rest);
    if (isUnsafeToShow(point.value)) {
      safe += formatted("\\u{%X}", static_cast<unsigned>(point.value));
    } else {
      safe += rest.substr(0, point.length);
    }
    rest.remove_prefix(point.length);
  }
  return safe;
}

}  // namespace wifi_profile::runtime
