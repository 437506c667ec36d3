#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "diagnostic/platform/Text.h"

namespace wifi_profile {
namespace {

using namespace std::string_literals;

TEST(EqualNames, CompareEveryByte) {
  EXPECT_TRUE(equalNames(makeText("Home"), makeText("Home")));
  EXPECT_TRUE(equalNames(makeText(""), makeText("")));
  EXPECT_FALSE(equalNames(makeText("Home"), makeText("home")));
  EXPECT_FALSE(equalNames(makeText("Home"), makeText("Home "))) << "a blank at the end";
  EXPECT_FALSE(equalNames(makeText("\u00e9"), makeText("e\u0301"))) << "two ways to write one";
  EXPECT_FALSE(equalNames(makeText("a\0b"s), makeText("a\0c"s)));
}

TEST(EqualNames, TakeNilForUnequalToEverything) {
  EXPECT_FALSE(equalNames(nullptr, nullptr));
  EXPECT_FALSE(equalNames(nullptr, makeText("")));
  EXPECT_FALSE(equalNames(makeText("Home"), nullptr));
}

TEST(EndsWith, IgnoresTheCaseOfTheName) {
  for (const char* name : {"x_nomap", "x_NOMAP", "x_NoMap", "_nomap"}) {
    EXPECT_TRUE(endsWithIgnoringCase(makeText(name), "_nomap")) << name;
  }
}

TEST(EndsWith, LooksAtTheEndOnly) {
  for (const char* name : {"", "nomap", "_nomap ", "_nomapx", "-nomap"}) {
    EXPECT_FALSE(endsWithIgnoringCase(makeText(name), "_nomap")) << name;
  }
}

TEST(EndsWith, DoesNotFoldLettersBeyondASCII) {
  // U+0130 and U+212A are lower-cased to i and k by Unicode.
  EXPECT_FALSE(endsWithIgnoringCase(makeText("x\u0130"), "i"));
  EXPECT_FALSE(endsWithIgnoringCase(makeText("x\u212a"), "k"));
}

TEST(EndsWith, SaysNoOfNil) {
  EXPECT_FALSE(endsWithIgnoringCase(nullptr, "_nomap"));
  EXPECT_FALSE(endsWithIgnoringCase(nullptr, ""));
}

void expectCodePoint(std::string_view text, char32_t value, std::size_t length) {
  const CodePoint point = firstCodePoint(text);
  EXPECT_TRUE(point.valid) << text;
  EXPECT_EQ(point.value, value) << text;
  EXPECT_EQ(point.length, length) << text;
}

TEST(CodePoints, AreReadAtTheBoundsOfEachLength) {
  expectCodePoint("\0x"s, 0, 1);
  expectCodePoint("\x7F", 0x7F, 1);
  expectCodePoint("\xC2\x80", 0x80, 2);
  expectCodePoint("\xDF\xBF", 0x7FF, 2);
  expectCodePoint("\xE0\xA0\x80", 0x800, 3);
  expectCodePoint("\xED\x9F\xBF", 0xD7FF, 3);
  expectCodePoint("\xEE\x80\x80", 0xE000, 3);
  expectCodePoint("\xEF\xBF\xBF", 0xFFFF, 3);
  expectCodePoint("\xF0\x90\x80\x80", 0x10000, 4);
  expectCodePoint("\xF4\x8F\xBF\xBF", 0x10FFFF, 4);
}

TEST(CodePoints, LeaveTheRestOfTheTextAlone) { expectCodePoint("\xC3\xA9zzz", 0xE9, 2); }

TEST(CodePoints, AreInvalidByOneByteWhereTheTextIsNotUtf8) {
  const std::vector<std::string> broken{
      "\x80",              // a continuation at the front
      "\xBF",              //
      "\xC0\x80",          // overlong
      "\xC1\xBF",          // overlong
      "\xE0\x9F\xBF",      // overlong
      "\xF0\x8F\xBF\xBF",  // overlong
      "\xED\xA0\x80",      // a surrogate
      "\xED\xBF\xBF",      // a surrogate
      "\xF4\x90\x80\x80",  // beyond U+10FFFF
      "\xF5\x80\x80\x80",  // no lead byte
      "\xFF",              //
      "\xC3",              // cut short
      "\xE2\x82",          //
      "\xF0\x9F\x98",      //
      "\xC3z",             // no continuation where one should be
      "\xE2z\x82",         //
      "\xE2\x82z",         //
      "\xF0\x9F\x98z",     //
  };
  for (const std::string& text : broken) {
    const CodePoint point = firstCodePoint(text);
    EXPECT_FALSE(point.valid) << ::testing::PrintToString(text);
    EXPECT_EQ(point.value, static_cast<unsigned char>(text.front()));
    EXPECT_EQ(point.length, 1U);
    EXPECT_FALSE(isValidUtf8("before" + text + "after"));
  }
}

TEST(CodePoints, AreCountedWithOneForEachBadByte) {
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_EQ(characterCount("Home"), 4U);
  EXPECT_EQ(characterCount("\u00e9\u20ac\U0001F600"), 3U);
  EXPECT_EQ(characterCount("e\u0301"), 2U);
  EXPECT_EQ(characterCount("a\xFF\xFEz"), 4U);
  EXPECT_EQ(characterCount("\xED\xA0\x80"), 3U);
}

TEST(ValidUtf8, IsAnyTextOfWholeCodePoints) {
  EXPECT_TRUE(isValidUtf8(""));
  EXPECT_TRUE(isValidUtf8("a\0b"s));
  EXPECT_TRUE(isValidUtf8("caf\u00e9 \U0001F4F6"));
}

TEST(Text, ShortensBetweenCharacters) {
  EXPECT_EQ(shortened("abc", 3), "abc");
  EXPECT_EQ(shortened("abcd", 3), "abc…");
  EXPECT_EQ(shortened("ab\u00e9d", 3), "ab…");
  EXPECT_EQ(shortened("\u00e9", 1), "…");
}

}  // namespace
}  // namespace wifi_profile
