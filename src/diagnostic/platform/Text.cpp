#include "diagnostic/platform/Text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <random>

namespace wifi_profile {
namespace {

char lowerCased(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::uint64_t randomWord() {
  std::random_device device;
  return std::uint64_t{device()} << 32U | device();
}

// Random parameters of the hash function, secret to the process.
struct HashSecret {
  std::uint64_t start = randomWord();
  std::uint64_t mask = randomWord();
  std::uint64_t factor = randomWord() | 1U;
};

// Multiplies two words and XORs the two halves of the full product.
std::uint64_t foldedProduct(std::uint64_t one, std::uint64_t other) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = Wide{one} * other;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
}

template <class Word>
std::uint64_t wordAt(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

using TwoWords = std::array<std::uint64_t, 2>;

TwoWords sixteenBytes(const char* bytes) {
  return {wordAt<std::uint64_t>(bytes), wordAt<std::uint64_t>(bytes + 8)};
}

// Returns all of at most 16 bytes in two words. Some bytes may be included twice.
TwoWords fewBytes(const char* begin, std::size_t size) {
  const char* const end = begin + size;
  if (size >= 8) return {wordAt<std::uint64_t>(begin), wordAt<std::uint64_t>(end - 8)};
  if (size >= 4) return {wordAt<std::uint32_t>(begin), wordAt<std::uint32_t>(end - 4)};
  if (size >= 2) return {wordAt<std::uint16_t>(begin), wordAt<std::uint16_t>(end - 2)};
  return {size == 1 ? wordAt<std::uint8_t>(begin) : 0, 0};
}

}  // namespace

std::uint64_t Text::reckonHash() const {
  static const HashSecret kSecret;
  const char* const begin = text_.data();
  const std::size_t size = text_.size();
  std::uint64_t hash = kSecret.start ^ size;
  const auto mix = [&](const TwoWords& words) {
    hash = foldedProduct(words[0] ^ hash, words[1] ^ kSecret.mask);
  };
  for (std::size_t done = 0; done + 16 < size; done += 16) mix(sixteenBytes(begin + done));
  mix(size > 16 ? sixteenBytes(begin + size - 16) : fewBytes(begin, size));
  hash = foldedProduct(hash, kSecret.factor) | 1U;  // 0 means not computed
  hash_.store(hash, std::memory_order_relaxed);
  return hash;
}

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
