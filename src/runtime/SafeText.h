// Makes texts from the air, a bus or a file safe to show.
#pragma once

#include <string>
#include <string_view>

namespace wifi_profile::runtime {

// True if a terminal could do more with a code point than show a character: control characters (C0,
// DEL, C1), line and paragraph separators, and the invisible characters that change the direction
// or the look of the following text.
bool isUnsafeToShow(char32_t codePoint);

// Returns a valid text unchanged. In any other text, replaces bytes that are not valid UTF-8 by
// `\xNN` and backslashes by `\\`. The result is always valid UTF-8.
std::string validUtf8(std::string_view text);

// Like `validUtf8`, but also replaces every unsafe code point by `\u{N}` (hexadecimal). The result
// contains nothing that a terminal would act on.
std::string safeText(std::string_view text);

}  // namespace wifi_profile::runtime
