#include "app/terminal/KeyDecoder.h"

#include <utility>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::terminal {
namespace {

// Returns the length of a character with this first byte; 0: invalid.
std::size_t lengthAfter(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

std::optional<Key::Name> nameOfControl(unsigned char byte) {
  switch (byte) {
    case '\r':
    case '\n':
      return Key::Name::enter;
    case '\t':
      return Key::Name::tab;
    case 0x1B:
      return Key::Name::escape;
    case 0x08:
    case 0x7F:
      return Key::Name::backspace;
    case 0x0C:  // Ctrl-L
      return Key::Name::repaint;
    case 0x15:  // Ctrl-U
      return Key::Name::eraseToStart;
    case 0x17:  // Ctrl-W
      return Key::Name::eraseWord;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<Key> KeyDecoder::byte(unsigned char byte) {
  const bool continues = (byte & 0xC0) == 0x80;
  if (!continues) partial_.clear();
  if (continues && partial_.empty()) return std::nullopt;
  partial_ += static_cast<char>(byte);
  const std::size_t length = lengthAfter(static_cast<unsigned char>(partial_.front()));
  if (partial_.size() < length) return std::nullopt;
  const std::string character = std::exchange(partial_, {});
  if (length == 0 || !isValidUtf8(character)) return std::nullopt;
  if (paste_) {
    *paste_ += character;
    return std::nullopt;
  }
  if (byte < 0x20 || byte == 0x7F) {
    const auto name = nameOfControl(byte);
    return name ? std::optional(Key{*name, ""}) : std::nullopt;
  }
  return typed(character);
}

std::optional<Key> KeyDecoder::named(Key::Name name) {
  partial_.clear();
  if (paste_) return std::nullopt;
  return Key{name, ""};
}

void KeyDecoder::pasteBegins() { paste_.emplace(); }

std::optional<Key> KeyDecoder::pasteEnds() {
  if (!paste_) return std::nullopt;
  return Key{Key::Name::paste, *std::exchange(paste_, std::nullopt)};
}

}  // namespace wifi_profile::terminal
