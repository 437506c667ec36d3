#include <string>

#include "diagnostic/platform/Array.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "support/Matchers.h"

namespace wifi_profile::runtime {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

ObjectRef valueOf(std::string_view text) {
  const auto read = readJson(text);
  EXPECT_TRUE(read) << text << ": " << read.error().message;
  return read ? *read : nullptr;
}

Error errorOf(std::string_view text) {
  const auto read = readJson(text);
  EXPECT_FALSE(read) << text << " was read";
  return read ? Error{} : read.error();
}

TEST(JsonReader, KeepsTheKindsOfNumbersApart) {
  EXPECT_THAT(valueOf("true"), isBoolean(true));
  EXPECT_THAT(valueOf("false"), isBoolean(false));
  EXPECT_THAT(valueOf("0"), isInteger(0));
  EXPECT_THAT(valueOf("-1"), isInteger(-1));
  EXPECT_THAT(valueOf("1.0"), isDouble(1.0));
  EXPECT_THAT(valueOf("1e3"), isDouble(1000.0));
  EXPECT_THAT(valueOf("2E-1"), isDouble(0.2));
}

TEST(JsonReader, TakesAnUnsignedIntegerOnlyWhereItMust) {
  EXPECT_THAT(valueOf("9223372036854775807"), isInteger(INT64_MAX));
  EXPECT_THAT(valueOf("9223372036854775808"), isUnsigned(9223372036854775808U));
  EXPECT_THAT(valueOf("18446744073709551615"), isUnsigned(UINT64_MAX));
  EXPECT_THAT(valueOf("-9223372036854775808"), isInteger(INT64_MIN));
}

TEST(JsonReader, RefusesIntegersOfMoreThan64Bits) {
  for (const std::string text :
       {"18446744073709551616", "-9223372036854775809", "1000000000000000000000000"}) {
    const Error error = errorOf(text);
    EXPECT_THAT(error.message, HasSubstr(text));
    EXPECT_THAT(error.message, HasSubstr("64 bits"));
  }
}

TEST(JsonReader, RefusesDoublesThatOverflow) {
  EXPECT_THAT(errorOf("1e400").message, HasSubstr("1e400"));
  EXPECT_THAT(errorOf("[-1e400]").message, HasSubstr("-1e400"));
  EXPECT_THAT(valueOf("1e-400"), isDouble(0.0));
}

TEST(JsonReader, ReadsTextsAndNullAndContainers) {
  EXPECT_THAT(valueOf(R"("a\u00e9\n\ud83d\ude00")"), isText("a\u00e9\n\U0001F600"));
  EXPECT_THAT(valueOf("null"), isNull());
  const auto array = as<Array>(valueOf("[1, [2], {}]"));
  ASSERT_TRUE(array);
  ASSERT_EQ(array->elements().size(), 3U);
  EXPECT_THAT(array->elements()[0], isInteger(1));
  EXPECT_TRUE(as<Array>(array->elements()[1]));
  EXPECT_TRUE(as<Dictionary>(array->elements()[2]));
  const auto dictionary = as<Dictionary>(valueOf(R"({"b": null, "a": {"b": 1}, "": "x"})"));
  ASSERT_TRUE(dictionary);
  EXPECT_THAT(keysOf(dictionary), ElementsAre("", "a", "b"));
  EXPECT_THAT(dictionary->objectForKey("b"), isNull());
}

TEST(JsonReader, ReadsBackWhatTheWriterWrites) {
  const std::string text =
      R"({"a":[1,-2,18446744073709551615,0.1,1e+300,100.0,true,null],"b":{"c":"\u001b\"\\"}})";
  EXPECT_EQ(jsonText(valueOf(text)), text);
}

TEST(JsonReader, RefusesAKeyThatStandsTwiceInOneObject) {
  const Error error = errorOf("{\"a\": 1,\n \"a\": 2}");
  EXPECT_EQ(error.subject, "2:4");
  EXPECT_THAT(error.message, HasSubstr("\"a\""));
  errorOf(R"({"": 1, "": 1})");
  errorOf(R"({"x": {"a": 1, "\u0061": 2}})");
}

TEST(JsonReader, AllowsAKeyAgainInAnotherObject) {
  EXPECT_EQ(jsonText(valueOf(R"([{"a":1},{"a":{"a":2}}])")), R"([{"a":1},{"a":{"a":2}}])");
}

std::string nested(std::size_t levels, const std::string& open, const std::string& close) {
  std::string text;
  for (std::size_t i = 0; i < levels; ++i) text += open;
  text += "0";
  for (std::size_t i = 0; i < levels; ++i) text += close;
  return text;
}

TEST(JsonReader, RefusesNestingBeyondTheDeepest) {
  EXPECT_TRUE(as<Array>(valueOf(nested(64, "[", "]"))));
  EXPECT_TRUE(as<Dictionary>(valueOf(nested(64, R"({"a":)", "}"))));
  EXPECT_THAT(errorOf(nested(65, "[", "]")).message, HasSubstr("nesting"));
  EXPECT_THAT(errorOf(nested(65, R"({"a":)", "}")).message, HasSubstr("nesting"));
  EXPECT_THAT(errorOf(std::string(1'000'000, '[')).message, HasSubstr("nesting"));
}

TEST(JsonReader, CountsOnlyTheLevelsThatAreOpen) {
  std::string text = "[";
  for (int i = 0; i < 200; ++i) text += "[],";
  EXPECT_TRUE(as<Array>(valueOf(text + "[]]")));
}

TEST(JsonReader, RefusesWhatIsNotJson) {
  for (const std::string text :
       {"",        " ",         "{",           "[1,]",       "{\"a\":1,}", "{a:1}",
        "{'a':1}", "01",        "+1",          ".5",         "1.",         "nul",
        "True",    "NaN",       "Infinity",    "1 2",        "[1] x",      "\"a",
        "\"\n\"",  "\"\\x41\"", "\"\\ud800\"", "// note\n1", "\"\xFF\"",   "\"\xED\xA0\x80\""}) {
    errorOf(text);
  }
}

TEST(JsonReader, TellsTheLineAndColumnOfTheFault) {
  const Error error = errorOf("{\n  \"a\": 1,\n  \"b\": ?\n}");
  EXPECT_EQ(error.subject, "3:8");
  EXPECT_THAT(error.message, StartsWith("found \"?\", expected ")) << "not what stands before it";
}

TEST(JsonReader, DoesNotTakeANulForTheEnd) {
  const Error error = errorOf(std::string("{}\0{", 4));
  EXPECT_EQ(error.subject, "1:3");
  EXPECT_EQ(error.message, "found a NUL byte, expected JSON");
}

TEST(JsonReader, SaysWhatIsWrongInsideAText) {
  EXPECT_THAT(errorOf(R"(["\ud800"])").message, HasSubstr("surrogate"));
}

TEST(JsonReader, CountsColumnsInBytes) {
  const Error error = errorOf("[\"\u00e9\", ?]");
  EXPECT_EQ(error.subject, "1:8");
}

TEST(JsonReader, TellsOfAnEarlyEndWhereTheTextEnds) {
  const Error error = errorOf("[\n 1,\n ");
  EXPECT_EQ(error.subject, "3:2");
  EXPECT_THAT(error.message, HasSubstr("end"));
  EXPECT_EQ(errorOf("").subject, "1:1");
  EXPECT_THAT(errorOf("").message, HasSubstr("end"));
}

}  // namespace
}  // namespace wifi_profile::runtime
