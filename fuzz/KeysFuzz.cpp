// Any bytes as what a terminal sends, and as what is done to a text with the keys.

#include <clocale>

#include "Require.h"
#include "platform/Text.h"
#include "screens/terminal/KeyDecoder.h"
#include "screens/terminal/TextEdit.h"

using namespace wifi_profile;

namespace {

bool hasControl(std::string_view text) {
  for (; !text.empty(); text.remove_prefix(firstCodePoint(text).length)) {
    const char32_t point = firstCodePoint(text).value;
    if (point < 0x20 || (point >= 0x7F && point < 0xA0)) return true;
  }
  return false;
}

void check(const Key& key) {
  require(isValidUtf8(key.text), "what is typed is UTF-8");
  const bool isTyped = key.name == Key::Name::character;
  require(isTyped == (characterCount(key.text) == 1) || key.name == Key::Name::paste,
          "a character is one, and other keys have none");
}

void check(const EditedText& edit) {
  require(isValidUtf8(edit.text) && !hasControl(edit.text), "a text has no controls");
  require(edit.caret <= edit.text.size(), "a caret stands in its text");
  require(isValidUtf8(std::string_view(edit.text).substr(0, edit.caret)),
          "a caret stands between characters");
}

// Bytes that UTF-8 does not have stand for the sequences that the terminal's description names.
std::optional<Key> keyOf(KeyDecoder& decoder, unsigned char byte) {
  if (byte < 0xF5) return decoder.byte(byte);
  if (byte == 0xFE) decoder.pasteBegins();
  if (byte == 0xFE) return std::nullopt;
  if (byte == 0xFF) return decoder.pasteEnds();
  constexpr Key::Name kNames[]{Key::Name::left, Key::Name::right,    Key::Name::home,
                               Key::Name::end,  Key::Name::erase,    Key::Name::eraseWord,
                               Key::Name::up,   Key::Name::pageDown, Key::Name::backTab};
  return decoder.named(kNames[byte - 0xF5]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  static const char* const kLocale = std::setlocale(LC_CTYPE, "C.UTF-8");
  require(kLocale != nullptr, "there is a locale of UTF-8");
  KeyDecoder decoder;
  EditedText edit;
  for (const unsigned char byte : std::basic_string_view(bytes, size)) {
    const auto key = keyOf(decoder, byte);
    if (!key) continue;
    check(*key);
    const EditedText before = edit;
    edit = edited(edit, *key);
    check(edit);
    if (key->name == Key::Name::character && !hasControl(key->text)) {
      require(edit.text.size() == before.text.size() + key->text.size(), "what is typed is kept");
    }
  }
  return 0;
}
