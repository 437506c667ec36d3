#include <gtest/gtest.h>

#include "diagnostic/platform/Text.h"
#include "runtime/SafeText.h"

namespace wifi_profile::runtime {
namespace {

using namespace std::string_literals;

TEST(SafeText, TakesControlCharactersForUnsafe) {
  for (const char32_t point :
       {0x00U, 0x07U, 0x09U, 0x0AU, 0x1BU, 0x1FU, 0x7FU, 0x80U, 0x9BU, 0x9FU}) {
    EXPECT_TRUE(isUnsafeToShow(point)) << static_cast<unsigned>(point);
  }
}

TEST(SafeText, TakesInvisibleAndReorderingCharactersForUnsafe) {
  for (const char32_t point :
       {0xADU, 0x061CU, 0x180EU, 0x200BU, 0x200EU, 0x200FU, 0x2028U, 0x2029U, 0x202AU, 0x202EU,
        0x2060U, 0x2066U, 0x2069U, 0x206FU, 0xFEFFU, 0xFFF9U, 0xFFFBU, 0xE0001U, 0xE007FU}) {
    EXPECT_TRUE(isUnsafeToShow(point)) << static_cast<unsigned>(point);
  }
}

TEST(SafeText, TakesWhatIsBesideTheUnsafeRangesForSafe) {
  for (const char32_t point :
       {0x20U, 0x7EU, 0xA0U, 0xACU, 0xAEU, 0x200AU, 0x200CU, 0x200DU, 0x2010U, 0x2027U, 0x202FU,
        0x205FU, 0x2070U, 0xFEFEU, 0xFF00U, 0xFFFCU, 0x1F4F6U, 0xDFFFFU, 0xE1000U}) {
    EXPECT_FALSE(isUnsafeToShow(point)) << static_cast<unsigned>(point);
  }
}

TEST(SafeText, LeavesAValidTextAsItIs) {
  for (const std::string& text : {""s, "Home"s, R"(a\xFFb)"s, "caf\u00e9 \U0001F4F6"s}) {
    EXPECT_EQ(validUtf8(text), text);
    EXPECT_EQ(safeText(text), text);
  }
}

TEST(SafeText, ShowsBadBytesByTheirNumbersAndThenDoublesBackslashes) {
  EXPECT_EQ(validUtf8("a\xFF\xC3z"), R"(a\xFF\xC3z)");
  EXPECT_EQ(validUtf8("\\xFF\xFF"), R"(\\xFF\xFF)");
  EXPECT_EQ(validUtf8("\xED\xA0\x80"), R"(\xED\xA0\x80)");
  EXPECT_EQ(validUtf8("\xC3\xA9\xFE"), "\u00e9\\xFE");
}

TEST(SafeText, ShowsUnsafeCharactersByTheirNumbers) {
  EXPECT_EQ(safeText("a\x1B[31mb"), R"(a\u{1B}[31mb)");
  EXPECT_EQ(safeText("\0"s), R"(\u{0})");
  EXPECT_EQ(safeText("x\u202ey\U000E0041"), R"(x\u{202E}y\u{E0041})");
}

TEST(SafeText, IsValidAndSafeWhateverTheBytes) {
  std::string every;
  for (int first = 0; first < 256; ++first) {
    every += static_cast<char>(first);
    every += static_cast<char>(255 - first);
  }
  const std::string safe = safeText(every);
  ASSERT_TRUE(isValidUtf8(safe));
  for (std::string_view rest = safe; !rest.empty();) {
    const CodePoint point = firstCodePoint(rest);
    EXPECT_FALSE(isUnsafeToShow(point.value)) << static_cast<unsigned>(point.value);
    rest.remove_prefix(point.length);
  }
}

}  // namespace
}  // namespace wifi_profile::runtime
