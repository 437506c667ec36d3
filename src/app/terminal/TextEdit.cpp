#include "app/terminal/TextEdit.h"

#include <cwchar>
#include <string_view>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::terminal {
namespace {

bool isMark(char32_t point) { return wcwidth(static_cast<wchar_t>(point)) == 0; }

std::string withoutControls(std::string_view text) {
  std::string kept;
  for (; !text.empty(); text.remove_prefix(firstCodePoint(text).length)) {
    const CodePoint point = firstCodePoint(text);
    const bool control = point.value < 0x20 || (point.value >= 0x7F && point.value < 0xA0);
    if (point.valid && !control) kept += text.substr(0, point.length);
  }
  return kept;
}

// Returns the end of the character that begins at `position`, with its combining marks.
std::size_t after(std::string_view text, std::size_t position) {
  if (position >= text.size()) return text.size();
  position += firstCodePoint(text.substr(position)).length;
  while (position < text.size()) {
    const CodePoint point = firstCodePoint(text.substr(position));
    if (!isMark(point.value)) break;
    position += point.length;
  }
  return position;
}

std::size_t before(std::string_view text, std::size_t position) {
  std::size_t start = 0;
  for (std::size_t next = 0; next < position; next = after(text, next)) start = next;
  return start;
}

std::size_t startOfWord(std::string_view text, std::size_t position) {
  while (position > 0 && text[position - 1] == ' ') --position;
  while (position > 0 && text[position - 1] != ' ') --position;
  return position;
}

void erase(EditedText& text, std::size_t from, std::size_t to) {
  text.text.erase(from, to - from);
  text.caret = from;
}

}  // namespace

EditedText edited(EditedText text, const Key& key) {
  switch (key.name) {
    case Key::Name::character:
    case Key::Name::paste: {
      const std::string more = withoutControls(key.text);
      text.text.insert(text.caret, more);
      text.caret += more.size();
      break;
    }
    case Key::Name::backspace:
      erase(text, before(text.text, text.caret), text.caret);
      break;
    case Key::Name::erase:
      erase(text, text.caret, after(text.text, text.caret));
      break;
    case Key::Name::eraseToStart:
      erase(text, 0, text.caret);
      break;
    case Key::Name::eraseWord:
      erase(text, startOfWord(text.text, text.caret), text.caret);
      break;
    case Key::Name::left:
      text.caret = before(text.text, text.caret);
      break;
    case Key::Name::right:
      text.caret = after(text.text, text.caret);
      break;
    case Key::Name::home:
      text.caret = 0;
      break;
    case Key::Name::end:
      text.caret = text.text.size();
      break;
    default:
      break;
  }
  return text;
}

}  // namespace wifi_profile::terminal
