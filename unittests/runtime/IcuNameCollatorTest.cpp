// The order of names in a person's locale.

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <unicode/ucol.h>
#include <unicode/unistr.h>
#include <vector>

#include "runtime/IcuNameCollator.h"

namespace wifi_profile::runtime {
namespace {

using namespace std::string_literals;

std::string keyOf(std::string_view name, std::string_view locale = "en") {
  return IcuNameCollator(locale).sortKey(name);
}

// Names of up to twelve characters that meet often: of a few letters in either case, with and
// without accents, of several scripts, blanks, signs and a control character.
std::vector<std::string> randomNames(std::size_t count) {
  static const std::vector<std::string> kParts{
      "a",  "A",  "b", "c", "h", "l",  "j", "d",  "ž",  "å",      "n",          "N",   "z",  "ä",
      "Ä",  "e",  "é", "ñ", "ß", "ss", "1", "10", " ",  "-",      "_",          "あ",  "ア", "ー",
      "中", "爱", "ب", "ا", "ш", "Ш",  "ﬁ", "☃",  "한", "\u0301", "\U0001F4F6", "\x01"};
  std::mt19937 random(20250611);
  std::vector<std::string> names(count);
  for (std::string& name : names) {
    for (auto left = random() % 13; left > 0; --left) name += kParts[random() % kParts.size()];
  }
  return names;
}

int sign(int number) { return (number > 0) - (number < 0); }

TEST(IcuNameCollator, IgnoresCase) {
  EXPECT_EQ(keyOf("Home"), keyOf("home"));
  EXPECT_EQ(keyOf("CAFÉ"), keyOf("café"));
  EXPECT_LT(keyOf("apple"), keyOf("Banana"));
  EXPECT_LT(keyOf("Banana"), keyOf("cherry"));
}

TEST(IcuNameCollator, CountsAccentsWhereTheLettersAreTheSame) {
  EXPECT_LT(keyOf("Cafe"), keyOf("Café"));
  EXPECT_LT(keyOf("Café"), keyOf("Cafes"));
}

TEST(IcuNameCollator, CountsBlanksAndSigns) {
  EXPECT_LT(keyOf("a b"), keyOf("ab"));
  EXPECT_LT(keyOf("a-b"), keyOf("ab"));
}

TEST(IcuNameCollator, FollowsTheRulesOfALocaleOfTheEnvironment) {
  EXPECT_LT(keyOf("Å", "en_US.UTF-8"), keyOf("Z", "en_US.UTF-8"));
  for (const char* locale : {"sv_SE", "sv_SE.UTF-8", "sv_SE.iso88591@euro", "sv"}) {
    EXPECT_LT(keyOf("Z", locale), keyOf("Å", locale)) << locale;
  }
  EXPECT_LT(keyOf("ch", "en_GB.UTF-8"), keyOf("h", "en_GB.UTF-8"));
  EXPECT_LT(keyOf("h", "cs_CZ.UTF-8"), keyOf("ch", "cs_CZ.UTF-8"));
  EXPECT_LT(keyOf("zz", "da_DK.UTF-8"), keyOf("aa", "da_DK.UTF-8"));
}

TEST(IcuNameCollator, HasTheSharedRulesWithoutALocale) {
  for (const char* locale : {"C", "POSIX", "C.UTF-8", "", ".", "@", "_", "no such locale.@"}) {
    EXPECT_EQ(keyOf("Ñandú", locale), keyOf("Ñandú", "en")) << locale;
    EXPECT_EQ(keyOf("ñandÚ", locale), keyOf("Ñandú", locale)) << locale;
  }
  EXPECT_EQ(keyOf("Ñandú", std::string(10'000, 'x')), keyOf("Ñandú", "en"));
}

TEST(IcuNameCollator, FollowsTheRulesOfTheLanguage) {
  EXPECT_LT(keyOf("ña", "en"), keyOf("nz", "en"));
  EXPECT_LT(keyOf("nz", "es"), keyOf("ña", "es"));
  EXPECT_LT(keyOf("大", "en"), keyOf("安", "en"));
  EXPECT_LT(keyOf("安", "zh"), keyOf("大", "zh"));
  EXPECT_LT(keyOf("a", "en"), keyOf("ب", "en"));
  EXPECT_LT(keyOf("ب", "ar"), keyOf("a", "ar"));
}

TEST(IcuNameCollator, HasTheSharedRulesForOtherLanguages) {
  for (const std::string& language : {""s, "keys"s, "qq"s, "en"s, "no such language"s}) {
    EXPECT_EQ(keyOf("Ñandú", language), keyOf("Ñandú", "de")) << language;
  }
}

TEST(IcuNameCollator, OrdersKeysAsTheLocaleComparesNames) {
  const auto names = randomNames(3000);
  for (const char* const locale :
       {"ar", "cs_CZ", "da_DK", "de", "en", "es", "es@collation=traditional", "fr", "fr_CA", "hr",
        "hu", "ja", "nb_NO", "sk_SK", "sv_SE", "zh"}) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCollator, void (*)(UCollator*)> reference(
        ucol_open(locale, &status), [](UCollator* it) { ucol_close(it); });
    ASSERT_TRUE(U_SUCCESS(status)) << locale;
    ucol_setStrength(reference.get(), UCOL_SECONDARY);
    const IcuNameCollator collator(locale);
    std::vector<std::string> keys(names.size());
    std::vector<icu::UnicodeString> units(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
      keys[i] = collator.sortKey(names[i]);
      units[i] = icu::UnicodeString::fromUTF8(names[i]);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
      for (const std::size_t j : {(i + 1) % names.size(), i * 7 % names.size()}) {
        const int expected = ucol_strcoll(reference.get(), units[i].getBuffer(), units[i].length(),
                                          units[j].getBuffer(), units[j].length());
        ASSERT_EQ(sign(keys[i].compare(keys[j])), sign(expected))
            << locale << ": '" << names[i] << "', '" << names[j] << "'";
      }
    }
  }
}

TEST(IcuNameCollator, TakesBytesThatAreNoUtf8ForTheReplacementCharacter) {
  EXPECT_EQ(keyOf("A\xFF"), keyOf("a\uFFFD"));
  EXPECT_EQ(keyOf("\xC3"), keyOf("\uFFFD"));
  EXPECT_EQ(keyOf("\xC3z"), keyOf("\uFFFDZ"));
  EXPECT_NE(keyOf("A\xFF"), keyOf("A"));
}

TEST(IcuNameCollator, TakesAnyBytes) {
  const IcuNameCollator collator("ja");
  std::mt19937 random(7);
  for (int i = 0; i < 3000; ++i) {
    std::string name(random() % 40, '\0');
    for (char& c : name) c = static_cast<char>(random());
    EXPECT_EQ(collator.sortKey(name).find('\0'), std::string::npos);
  }
}

TEST(IcuNameCollator, DoesNotEndANameAtANulByte) {
  EXPECT_LT(keyOf("a"), keyOf("a\0b"s));
  EXPECT_EQ(keyOf("ab"), keyOf("a\0b"s));
}

// Of any length, that is: also where the memory from the stack is no longer enough.
TEST(IcuNameCollator, OrdersANameBehindItsFront) {
  const IcuNameCollator collator("en");
  for (const std::string_view letter : {"a", "é", "中"}) {
    std::string name;
    std::string before = collator.sortKey(name);
    for (int length = 1; length <= 600; ++length) {
      name += letter;
      const std::string key = collator.sortKey(name);
      ASSERT_LT(before, key) << letter << length;
      before = key;
    }
  }
}

TEST(IcuNameCollator, TakesLongNames) {
  std::string lower;
  std::string upper;
  while (lower.size() < 10'240) {
    lower += "straßé";
    upper += "STRAßÉ";
  }
  EXPECT_EQ(keyOf(lower), keyOf(upper));
  EXPECT_LT(keyOf(lower + "e"), keyOf(lower + "é"));
  EXPECT_GT(keyOf(lower).size(), 5'000U);
}

TEST(IcuNameCollator, ServesSeveralThreadsAtATime) {
  const auto names = randomNames(2000);
  const IcuNameCollator collator("zh");
  std::vector<std::vector<std::string>> keys(3, std::vector<std::string>(names.size()));
  const auto fill = [&](std::vector<std::string>& own) {
    for (std::size_t i = 0; i < names.size(); ++i) own[i] = collator.sortKey(names[i]);
  };
  std::thread one(fill, std::ref(keys[0]));
  std::thread other(fill, std::ref(keys[1]));
  one.join();
  other.join();
  fill(keys[2]);
  EXPECT_EQ(keys[0], keys[2]);
  EXPECT_EQ(keys[1], keys[2]);
}

}  // namespace
}  // namespace wifi_profile::runtime
