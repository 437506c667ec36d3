// Keys put together letter by letter, against the comparison by ICU.

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <unicode/ucol.h>
#include <unicode/unistr.h>
#include <vector>

#include "runtime/IcuLetterKeys.h"

namespace wifi_profile::runtime {
namespace {

using Collator = std::unique_ptr<UCollator, decltype(&ucol_close)>;

Collator collatorOf(const char* language) {
  UErrorCode status = U_ZERO_ERROR;
  Collator collator(ucol_open(language, &status), &ucol_close);
  ucol_setStrength(collator.get(), UCOL_SECONDARY);
  EXPECT_TRUE(U_SUCCESS(status)) << language;
  return collator;
}

std::string utf8(const icu::UnicodeString& name) {
  std::string text;
  return name.toUTF8String(text);
}

std::string letterKeyOf(const IcuLetterKeys& keys, const icu::UnicodeString& name) {
  std::string key;
  if (!keys.append(utf8(name), key)) keys.append(name.getBuffer(), name.length(), key);
  return key;
}

// Short names of few letters at a time, so that they meet: out of all that may be in the table, and
// a few that are not.
std::vector<icu::UnicodeString> randomWords(std::size_t count) {
  std::mt19937 random(5);
  std::vector<char16_t> letters;
  std::vector<icu::UnicodeString> names(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (i % 40 == 0) {
      letters = {u'c', u'h', u'A', u'a', u'l', u'\u00B7', u's', u'\u0301', u'\u4E2D'};
      for (int more = 0; more < 6; ++more)
        letters.push_back(static_cast<char16_t>(random() % 0x182));
    }
    for (auto left = random() % 6; left > 0; --left) names[i] += letters[random() % letters.size()];
  }
  return names;
}

int signOf(int number) { return (number > 0) - (number < 0); }

TEST(IcuLetterKeys, AreInTheOrderOfTheCollator) {
  const auto names = randomWords(8000);
  for (const char* language : {"en", "cs", "cy", "da", "de", "es", "fr", "hu", "lt", "nb", "nl",
                               "pl", "sk", "sv", "tr", "vi"}) {
    const Collator collator = collatorOf(language);
    const IcuLetterKeys keys(*collator);
    EXPECT_TRUE(keys.areInOrder()) << language;
    for (std::size_t i = 0; i < names.size(); ++i) {
      const auto& one = names[i];
      const auto& other = names[i / 40 * 40 + i * 7 % 40];
      const int expected = ucol_strcoll(collator.get(), one.getBuffer(), one.length(),
                                        other.getBuffer(), other.length());
      ASSERT_EQ(signOf(letterKeyOf(keys, one).compare(letterKeyOf(keys, other))), expected)
          << language << ": '" << utf8(one) << "', '" << utf8(other) << "'";
    }
  }
}

TEST(IcuLetterKeys, AreNotMadeForLanguagesWhoseOrderIsMoreThanLetters) {
  for (const char* language : {"ar", "el", "fr_CA", "ja", "ru", "th", "zh"}) {
    EXPECT_FALSE(IcuLetterKeys(*collatorOf(language)).areInOrder()) << language;
  }
}

TEST(IcuLetterKeys, AreMadeFromTheTableForLatinNames) {
  const Collator collator = collatorOf("en");
  const IcuLetterKeys keys(*collator);
  std::string key;
  EXPECT_TRUE(keys.append("HomeBox-4711 's caf\u00e9 \u0160koda", key));
  EXPECT_TRUE(keys.append("", key));
  EXPECT_FALSE(key.empty());
}

TEST(IcuLetterKeys, AreNotMadeFromTheTableForOtherBytes) {
  const Collator collator = collatorOf("en");
  const IcuLetterKeys keys(*collator);
  std::string key;
  for (const std::string_view name :
       {"caf\xC3", "\xC3z", "\x80", "\xC0\x80", "\xFF", "\u4E2D", "\u0180"}) {
    EXPECT_FALSE(keys.append(name, key)) << name;
  }
  EXPECT_FALSE(keys.append(std::string(129, 'a'), key));
  EXPECT_TRUE(key.empty());
  EXPECT_TRUE(keys.append(std::string(128, 'a'), key));
}

}  // namespace
}  // namespace wifi_profile::runtime
