#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "runtime/JsonWriter.h"

namespace wifi_profile::runtime {
namespace {

using namespace std::string_literals;

TEST(JsonWriter, WritesBooleansAsWords) {
  EXPECT_EQ(jsonText(Number::withBool(true)), "true");
  EXPECT_EQ(jsonText(Number::withBool(false)), "false");
}

TEST(JsonWriter, WritesIntegersWithoutAPoint) {
  EXPECT_EQ(jsonText(Number::withInteger(0)), "0");
  EXPECT_EQ(jsonText(Number::withInteger(std::numeric_limits<std::int64_t>::min())),
            "-9223372036854775808");
  EXPECT_EQ(jsonText(Number::withUnsigned(1)), "1");
  EXPECT_EQ(jsonText(Number::withUnsigned(std::numeric_limits<std::uint64_t>::max())),
            "18446744073709551615");
}

TEST(JsonWriter, WritesDoublesWithAPointOrAnExponent) {
  EXPECT_EQ(jsonText(Number::withDouble(0)), "0.0");
  EXPECT_EQ(jsonText(Number::withDouble(-0.0)), "-0.0");
  EXPECT_EQ(jsonText(Number::withDouble(100)), "100.0");
  EXPECT_EQ(jsonText(Number::withDouble(-2.5)), "-2.5");
}

TEST(JsonWriter, WritesDoublesOfUnusualSizesWithAnExponent) {
  EXPECT_EQ(jsonText(Number::withDouble(1e5)), "100000.0");
  EXPECT_EQ(jsonText(Number::withDouble(9999999999999998)), "9999999999999998.0");
  EXPECT_EQ(jsonText(Number::withDouble(1e16)), "1e+16");
  EXPECT_EQ(jsonText(Number::withDouble(2593975024573720064.0)), "2.59397502457372e+18");
  EXPECT_EQ(jsonText(Number::withDouble(-1e300)), "-1e+300");
  EXPECT_EQ(jsonText(Number::withDouble(1e-4)), "0.0001");
  EXPECT_EQ(jsonText(Number::withDouble(1e-5)), "1e-05");
}

TEST(JsonWriter, WritesDoublesWithTheFewestDigitsThatReadBackTheSame) {
  EXPECT_EQ(jsonText(Number::withDouble(0.1)), "0.1");
  EXPECT_EQ(jsonText(Number::withDouble(1.0 / 3)), "0.3333333333333333");
  for (const double number : {5e-324, 1.7976931348623157e308, 0.1 + 0.2, 123456789.987654321}) {
    EXPECT_EQ(std::strtod(jsonText(Number::withDouble(number)).c_str(), nullptr), number);
  }
}

TEST(JsonWriter, WritesWhatIsNoNumberAsAText) {
  using Limits = std::numeric_limits<double>;
  EXPECT_EQ(jsonText(Number::withDouble(Limits::quiet_NaN())), "\"NaN\"");
  EXPECT_EQ(jsonText(Number::withDouble(-Limits::quiet_NaN())), "\"NaN\"");
  EXPECT_EQ(jsonText(Number::withDouble(Limits::infinity())), "\"Infinity\"");
  EXPECT_EQ(jsonText(Number::withDouble(-Limits::infinity())), "\"-Infinity\"");
}

TEST(JsonWriter, WritesNilAndThePlaceholderAndRecordsAsNull) {
  EXPECT_EQ(jsonText(nullptr), "null");
  EXPECT_EQ(jsonText(nullPlaceholder()), "null");
  EXPECT_EQ(jsonText(std::make_shared<const ChannelRecord>(1)), "null");
}

TEST(JsonWriter, WritesArraysInTheirOrder) {
  EXPECT_EQ(jsonText(std::make_shared<const Array>(std::vector<ObjectRef>{})), "[]");
  EXPECT_EQ(jsonText(std::make_shared<const Array>(std::vector<ObjectRef>{
                Number::withInteger(2), makeText("a"), nullPlaceholder(),
                std::make_shared<const Array>(std::vector<ObjectRef>{Number::withInteger(1)})})),
            "[2,\"a\",null,[1]]");
}

TEST(JsonWriter, WritesDictionariesInBytewiseOrderOfTheirKeys) {
  EXPECT_EQ(jsonText(makeDictionary({})), "{}");
  EXPECT_EQ(jsonText(makeDictionary({{"b", Number::withInteger(1)},
                                     {"a", makeDictionary({{"x", Number::withBool(true)}})},
                                     {"B", nullPlaceholder()},
                                     {"2GHz", makeText("")}})),
            R"({"2GHz":"","B":null,"a":{"x":true},"b":1})");
}

TEST(JsonWriter, EscapesKeysLikeTexts) {
  EXPECT_EQ(jsonText(makeDictionary({{"a\"\n", Number::withInteger(1)}})), R"({"a\"\u000a":1})");
}

TEST(JsonStrings, KeepPlainTextAsItIs) {
  EXPECT_EQ(jsonString(""), "\"\"");
  EXPECT_EQ(jsonString("caf\u00e9 / \U0001F4F6"), "\"caf\u00e9 / \U0001F4F6\"");
}

TEST(JsonStrings, EscapeQuotesAndBackslashes) { EXPECT_EQ(jsonString(R"(a"b\c)"), R"("a\"b\\c")"); }

TEST(JsonStrings, EscapeWhatATerminalWouldActOn) {
  EXPECT_EQ(jsonString("\0\t\n\x1B[2J\x7F"s), R"("\u0000\u0009\u000a\u001b[2J\u007f")");
  EXPECT_EQ(jsonString("\u0085\u009b\u2028\u202e\u200b\ufeff"),
            R"("\u0085\u009b\u2028\u202e\u200b\ufeff")");
}

TEST(JsonStrings, EscapeCodePointsBeyondTheBasicPlaneInPairs) {
  EXPECT_EQ(jsonString("\U000E0001"), R"("\udb40\udc01")");
  EXPECT_EQ(jsonString("\U0001D173"), R"("\ud834\udd73")");
}

TEST(JsonStrings, KeepTheJoiners) {
  EXPECT_EQ(jsonString("a\u200cb\u200dc"), "\"a\u200cb\u200dc\"");
}

TEST(JsonStrings, ShowBadBytesByTheirNumbers) {
  EXPECT_EQ(jsonString("a\xFFz"), R"("a\\xFFz")");
  EXPECT_EQ(jsonString("\\\xC3"), R"("\\\\\\xC3")") << "a backslash beside a bad byte is doubled";
}

}  // namespace
}  // namespace wifi_profile::runtime
