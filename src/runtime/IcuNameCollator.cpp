#include "runtime/IcuNameCollator.h"

#include <array>
#include <cassert>
#include <cstdint>
#include <unicode/ucol.h>
#include <unicode/uloc.h>
#include <unicode/ustring.h>
#include <vector>

namespace wifi_profile::runtime {
namespace {

// Sizes of a name and its key, in bytes, up to which no memory is allocated on the heap.
constexpr std::size_t kUsualName = 128;
constexpr std::int32_t kUsualKey = 512;

constexpr UChar32 kReplacement = 0xFFFD;

// Returns ICU's name for a locale of the environment. Empty: the root of all locales.
std::string icuLocale(std::string_view locale) {
  const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
  if (name == "C" || name == "POSIX") return {};
  std::array<char, ULOC_FULLNAME_CAPACITY> canonical{};
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t length = uloc_canonicalize(std::string(locale).c_str(), canonical.data(),
                                                ULOC_FULLNAME_CAPACITY, &status);
  if (U_FAILURE(status) || length >= ULOC_FULLNAME_CAPACITY) return {};
  return canonical.data();
}

UCollator* openedCollator(const char* locale) {
  UErrorCode status = U_ZERO_ERROR;
  UCollator* const collator = ucol_open(locale, &status);
  if (U_FAILURE(status)) return nullptr;
  ucol_setStrength(collator, UCOL_SECONDARY);
  return collator;
}

UCollator* collatorOf(std::string_view locale) {
  UCollator* const own = openedCollator(icuLocale(locale).c_str());
  return own ? own : openedCollator("");
}

// Converts the name to UTF-16. `units` must have at least as many elements as the name has bytes.
std::int32_t toUtf16(std::string_view name, UChar* units) {
  UErrorCode status = U_ZERO_ERROR;
  const auto size = static_cast<std::int32_t>(name.size());
  std::int32_t length = 0;
  u_strFromUTF8WithSub(units, size, &length, name.data(), size, kReplacement, nullptr, &status);
  assert(U_SUCCESS(status));
  return length;
}

void append(const std::uint8_t* bytes, std::int32_t count, std::string& key) {
  key.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
}

void appendKey(const UCollator& collator, const UChar* units, std::int32_t length,
               std::string& key) {
  std::array<std::uint8_t, kUsualKey> bytes;
  // The size of a key includes the NUL at its end and is at least 1. A key contains no other NUL,
  // so keys without it have the same order.
  const std::int32_t size = ucol_getSortKey(&collator, units, length, bytes.data(), kUsualKey);
  if (size <= kUsualKey) {
    append(bytes.data(), size - 1, key);
    return;
  }
  std::vector<std::uint8_t> longKey(static_cast<std::size_t>(size));
  ucol_getSortKey(&collator, units, length, longKey.data(), size);
  append(longKey.data(), size - 1, key);
}

}  // namespace

void IcuNameCollator::Closer::operator()(UCollator* collator) const { ucol_close(collator); }

IcuNameCollator::IcuNameCollator(std::string_view locale) : collator_(collatorOf(locale)) {}

const IcuLetterKeys* IcuNameCollator::letterKeys() const {
  std::call_once(letterKeysMade_, [this] {
    letterKeys_.emplace(*collator_);
    if (!letterKeys_->areInOrder()) letterKeys_.reset();
  });
  return letterKeys_ ? &*letterKeys_ : nullptr;
}

void IcuNameCollator::appendSortKey(std::string_view name, std::string& key) const {
  if (!collator_) {
    key += name;
    return;
  }
  const IcuLetterKeys* const quick = letterKeys();
  if (quick && quick->append(name, key)) return;
  std::array<UChar, kUsualName> usualUnits;
  std::vector<UChar> manyUnits(name.size() > kUsualName ? name.size() : 0);
  UChar* const units = manyUnits.empty() ? usualUnits.data() : manyUnits.data();
  const std::int32_t length = toUtf16(name, units);
  if (quick) {
    quick->append(units, length, key);
  } else {
    appendKey(*collator_, units, length, key);
  }
}

}  // namespace wifi_profile::runtime
