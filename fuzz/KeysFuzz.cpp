// Any bytes as what a terminal sends, and as what is done to a text with the keys.

#include <clocale>

#include "Require.h"
#include "app/terminal/KeyDecoder.h"
#include "app/terminal/TextEdit.h"
#include "diagnostic/platform/Text.h"

using namespace wifi_profile;

namespace {

bool hasControl(std::string_view text) {
  for (; !text.empty(); text.remove_prefix(firstCodePoint(text).length)) {
    const char32_t point = firstCodePoint(text).value;
    if (point < 0x20 || (point >= 0x7F && point < 0xA0)) return true;
  }
  return false;
}

void check(const terminal::Key& key) {
  require(isValidUtf8(key.text), "what is typed is UTF-8");
  const bool isTyped = key.name == terminal::Key::Name::character;
  require(isTyped == (characterCount(key.text) == 1) || key.name == terminal::Key::Name::paste,
          "a character is one, and other keys have none");
}

void check(const terminal::EditedText& edit) {
  require(isValidUtf8(edit.text) && !hasControl(edit.text), "a text has no controls");
  require(edit.caret <= edit.text.size(), "a caret stands in its text");
  require(isValidUtf8(std::string_view(edit.text).substr(0, edit.caret)),
          "a caret stands between characters");
}

// Bytes that UTF-8 does not have stand for the sequences that the terminal's description names.
std::optional<terminal::Key> keyOf(terminal::KeyDecoder& decoder, unsigned char byte) {
  if (byte < 0xF5) return decoder.byte(byte);
  if (byte == 0xFE) decoder.pasteBegins();
  if (byte == 0xFE) return std::nullopt;
  if (byte == 0xFF) return decoder.pasteEnds();
  constexpr terminal::Key::Name kNames[]{
      terminal::Key::Name::left, terminal::Key::Name::right,    terminal::Key::Name::home,
      terminal::Key::Name::end,  terminal::Key::Name::erase,    terminal::Key::Name::eraseWord,
      terminal::Key::Name::up,   terminal::Key::Name::pageDown, terminal::Key::Name::backTab};
  return decoder.named(kNames[byte - 0xF5]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  static const char* const kLocale = std::setlocale(LC_CTYPE, "C.UTF-8");
  require(kLocale != nullptr, "there is a locale of UTF-8");
  terminal::KeyDecoder decoder;
  terminal::EditedText edit;
  for (const unsigned char byte : std::basic_string_view(bytes, size)) {
    const auto key = keyOf(decoder, byte);
    if (!key) continue;
    check(*key);
    const terminal::EditedText before = edit;
    edit = terminal::edited(edit, *key);
    check(edit);
    if (key->name == terminal::Key::Name::character && !hasControl(key->text)) {
      require(edit.text.size() == before.text.size() + key->text.size(), "what is typed is kept");
    }
  }
  return 0;
}
