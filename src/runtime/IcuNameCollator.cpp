#include "runtime/IcuNameCollator.h"

#include <array>
#include <cstdint>
#include <unicode/ucol.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>
#include <vector>

namespace wifi_profile::runtime {
namespace {

constexpr std::size_t kUsualKey = 256;  // bytes

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

}  // namespace

void IcuNameCollator::Closer::operator()(UCollator* collator) const { ucol_close(collator); }

IcuNameCollator::IcuNameCollator(std::string_view locale) : collator_(collatorOf(locale)) {}

std::string IcuNameCollator::sortKey(std::string_view name) const {
  if (!collator_) return std::string(name);
  const auto text = icu::UnicodeString::fromUTF8(name);
  const auto write = [&](std::uint8_t* key, std::size_t size) {
    return static_cast<std::size_t>(ucol_getSortKey(
        collator_.get(), text.getBuffer(), text.length(), key, static_cast<std::int32_t>(size)));
  };
  std::array<std::uint8_t, kUsualKey> usual;
  const std::size_t size = write(usual.data(), usual.size());  // includes the NUL at the end
  if (size <= usual.size()) return {usual.begin(), usual.begin() + size - 1};
  std::vector<std::uint8_t> key(size);
  write(key.data(), size);
  return {key.begin(), key.end() - 1};
}

}  // namespace wifi_profile::runtime
