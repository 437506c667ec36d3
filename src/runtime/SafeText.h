// Texts from the air, a bus or a file, made fit to be shown.
#pragma once

#include <string>
#include <string_view>

namespace wifi_profile {

// Whether a code point could do more to a terminal than show a character: control characters
// (C0, DEL, C1), line and paragraph separators, and the invisible characters that change the
// direction or the look of what follows.
bool isUnsafeToShow(char32_t codePoint);

// A text that is not valid UTF-8 with its bad bytes as `\xNN` and its backslashes as `\\`; a valid
// text as it is. The result is always valid UTF-8.
std::string validUtf8(std::string_view text);

// The same, with every unsafe code point as `\u{N}` (hexadecimal): the result holds nothing that a
// terminal would act on.
std::string safeText(std::string_view text);

}  // namespace wifi_profile
