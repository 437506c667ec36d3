#include "runtime/IcuLetterKeys.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <unicode/ucol.h>
#include <unicode/ucoleitr.h>
#include <unicode/uset.h>

namespace wifi_profile::runtime {
namespace {

constexpr std::size_t kShortName = 128;   // bytes
constexpr char kBetweenWeights = '\x01';  // less than every weight

bool isOff(const UCollator& collator, UColAttribute attribute) {
  UErrorCode status = U_ZERO_ERROR;
  return ucol_getAttribute(&collator, attribute, &status) == UCOL_OFF && U_SUCCESS(status);
}

// True if the collator considers only the weights of a name, one after another: it moves no script,
// ignores no sign, and compares accents from the front.
bool goesByWeights(const UCollator& collator) {
  UErrorCode status = U_ZERO_ERROR;
  return ucol_getReorderCodes(&collator, nullptr, 0, &status) == 0 &&
         ucol_getAttribute(&collator, UCOL_ALTERNATE_HANDLING, &status) == UCOL_NON_IGNORABLE &&
         U_SUCCESS(status) && isOff(collator, UCOL_FRENCH_COLLATION) &&
         isOff(collator, UCOL_CASE_LEVEL) && isOff(collator, UCOL_NUMERIC_COLLATION);
}

// Appends the bytes of a weight, without zero bytes. No weight is a prefix of another.
void appendBytes(std::uint32_t weight, std::string& weights) {
  if ((weight >> 8U) != 0) weights += static_cast<char>(weight >> 8U);
  if ((weight & 0xFFU) != 0) weights += static_cast<char>(weight);
}

struct Weights {
  std::string first;
  std::string second;
};

Weights weightsOf(const UCollator& collator, const char16_t* units, std::int32_t length) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UCollationElements, decltype(&ucol_closeElements)> elements(
      ucol_openElements(&collator, units, length, &status), &ucol_closeElements);
  Weights weights;
  while (U_SUCCESS(status)) {
    const std::int32_t element = ucol_next(elements.get(), &status);
    if (element == UCOL_NULLORDER) break;
    appendBytes(static_cast<std::uint32_t>(ucol_primaryOrder(element)), weights.first);
    appendBytes(static_cast<std::uint32_t>(ucol_secondaryOrder(element)), weights.second);
  }
  return weights;
}

}  // namespace

IcuLetterKeys::IcuLetterKeys(const UCollator& collator)
    : collator_(collator), inOrder_(goesByWeights(collator)) {
  if (!inOrder_) return;
  for (std::size_t i = 0; i < kLetters; ++i) letters_[i] = letter(static_cast<char16_t>(i));
  forgetLettersOfContractions();
}

IcuLetterKeys::Letter IcuLetterKeys::letter(char16_t unit) const {
  const Weights weights = weightsOf(collator_, &unit, 1);
  Letter letter;
  letter.firstCount = kUnknown;
  if (std::max(weights.first.size(), weights.second.size()) > kMostWeights) return letter;
  letter.firstCount = static_cast<std::uint8_t>(weights.first.size());
  letter.secondCount = static_cast<std::uint8_t>(weights.second.size());
  std::copy(weights.first.begin(), weights.first.end(), letter.first.begin());
  std::copy(weights.second.begin(), weights.second.end(), letter.second.begin());
  return letter;
}

// Some letters have other weights after certain letters, such as the h of ch in Czech. ICU builds
// the keys of names with these letters.
void IcuLetterKeys::forgetLettersOfContractions() {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<USet, decltype(&uset_close)> sequences(uset_openEmpty(), &uset_close);
  ucol_getContractionsAndExpansions(&collator_, sequences.get(), nullptr, true, &status);
  for (std::int32_t i = 0; i < uset_getItemCount(sequences.get()); ++i) {
    std::array<char16_t, 64> units;
    UChar32 first = 0;
    UChar32 last = 0;
    const std::int32_t length = uset_getItem(sequences.get(), i, &first, &last, units.data(),
                                             static_cast<std::int32_t>(units.size()), &status);
    const auto isKnown = [](char16_t unit) { return unit < kLetters; };
    if (length >= 2 && std::all_of(units.begin(), units.begin() + length, isKnown)) {
      letters_[units[static_cast<std::size_t>(length) - 1]].firstCount = kUnknown;
    }
  }
  if (U_FAILURE(status)) {
    for (Letter& letter : letters_) letter.firstCount = kUnknown;
  }
}

bool IcuLetterKeys::append(std::string_view name, std::string& key) const {
  if (name.size() > kShortName) return false;
  std::array<char, (kShortName + 1) * kMostWeights> first;
  std::array<char, (kShortName + 1) * kMostWeights> second;
  char* firstEnd = first.data();
  char* secondEnd = second.data();
  for (std::size_t i = 0; i < name.size(); ++i) {
    std::size_t unit = static_cast<unsigned char>(name[i]);
    if (unit >= 0x80) {
      const bool isLetterOfTwoBytes = unit >= 0xC2 && unit <= 0xC5 && i + 1 < name.size();
      const auto next = isLetterOfTwoBytes ? static_cast<unsigned char>(name[++i]) : 0U;
      if ((next & 0xC0U) != 0x80U) return false;
      unit = (unit & 0x1FU) << 6U | (next & 0x3FU);
    }
    const Letter& letter = letters_[unit];
    if (letter.firstCount == kUnknown) return false;
    std::memcpy(firstEnd, letter.first.data(), kMostWeights);
    std::memcpy(secondEnd, letter.second.data(), kMostWeights);
    firstEnd += letter.firstCount;
    secondEnd += letter.secondCount;
  }
  *firstEnd++ = kBetweenWeights;
  key.append(first.data(), firstEnd);
  key.append(second.data(), secondEnd);
  return true;
}

void IcuLetterKeys::append(const char16_t* units, std::int32_t length, std::string& key) const {
  const Weights weights = weightsOf(collator_, units, length);
  key += weights.first;
  key += kBetweenWeights;
  key += weights.second;
}

}  // namespace wifi_profile::runtime
