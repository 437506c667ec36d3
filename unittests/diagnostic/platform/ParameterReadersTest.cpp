// The support library's readers of a parameter dictionary.

#include <limits>

#include "diagnostic/platform/DiagnosticsSupport.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

DictionaryRef holding(ObjectRef value) { return makeDictionary({{"key", std::move(value)}}); }

NumberRef readNumber(const DictionaryRef& dictionary, bool& failed) {
  return hs_numberFromRequiredKey(dictionary, "key", Number::withUnsigned(0),
                                  Number::withUnsigned(600), failed);
}

TEST(NumberReader, AcceptsTheBoundsAndWhatIsBetween) {
  for (const NumberRef& number :
       {Number::withInteger(0), Number::withInteger(600), Number::withUnsigned(300),
        Number::withDouble(0.5), Number::withDouble(600), Number::withDouble(-0.0)}) {
    bool failed = false;
    EXPECT_THAT(readNumber(holding(number), failed), isTheVery(number));
    EXPECT_FALSE(failed) << described(number);
  }
}

TEST(NumberReader, RefusesWhatIsOutOfBoundsOrNoNumber) {
  for (const ObjectRef& value : std::vector<ObjectRef>{
           Number::withInteger(601), Number::withInteger(-1), Number::withDouble(600.5),
           Number::withDouble(kNaN), Number::withBool(true), Number::withBool(false),
           makeText("30"), nullPlaceholder(), makeDictionary({})}) {
    bool failed = false;
    EXPECT_EQ(readNumber(holding(value), failed), nullptr);
    EXPECT_TRUE(failed) << described(value);
  }
}

TEST(NumberReader, RefusesAMissingKey) {
  for (const DictionaryRef& dictionary : {makeDictionary({}), DictionaryRef()}) {
    bool failed = false;
    EXPECT_EQ(readNumber(dictionary, failed), nullptr);
    EXPECT_TRUE(failed);
  }
}

TEST(BooleanReader, AcceptsBooleansOnly) {
  for (const bool value : {false, true}) {
    bool failed = false;
    EXPECT_EQ(hs_boolFromRequiredKey(holding(Number::withBool(value)), "key", failed), value);
    EXPECT_FALSE(failed);
  }
  for (const ObjectRef& value : std::vector<ObjectRef>{
           Number::withInteger(0), Number::withInteger(1), Number::withUnsigned(1),
           Number::withDouble(1), makeText("true"), nullPlaceholder()}) {
    bool failed = false;
    EXPECT_FALSE(hs_boolFromRequiredKey(holding(value), "key", failed));
    EXPECT_TRUE(failed) << described(value);
  }
}

TEST(BooleanReader, RefusesAMissingKey) {
  for (const DictionaryRef& dictionary : {makeDictionary({}), DictionaryRef()}) {
    bool failed = false;
    EXPECT_FALSE(hs_boolFromRequiredKey(dictionary, "key", failed));
    EXPECT_TRUE(failed);
  }
}

TEST(TextReader, AnswersTheDefaultForAMissingKeyWithoutFailure) {
  const TextRef fallback = makeText("default");
  for (const DictionaryRef& dictionary : {makeDictionary({}), DictionaryRef()}) {
    bool failed = false;
    EXPECT_EQ(hs_stringFromKey(dictionary, "key", 32, fallback, failed), fallback);
    EXPECT_EQ(hs_stringFromKey(dictionary, "key", 32, nullptr, failed), nullptr);
    EXPECT_FALSE(failed);
  }
}

TEST(TextReader, CountsCharactersNotBytes) {
  std::string wide;
  for (int i = 0; i < 32; ++i) wide += "\U0001F4F6";
  for (const std::string& text : {std::string(32, 'x'), wide, std::string()}) {
    bool failed = false;
    const TextRef value = makeText(text);
    EXPECT_EQ(hs_stringFromKey(holding(value), "key", 32, nullptr, failed), value);
    EXPECT_FALSE(failed) << text;
    hs_stringFromKey(holding(makeText(text + "yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy")), "key", 32,
                     nullptr, failed);
    EXPECT_TRUE(failed) << text;
  }
  bool failed = false;
  hs_stringFromKey(holding(makeText(wide + "x")), "key", 32, nullptr, failed);
  EXPECT_TRUE(failed) << "33 characters";
}

TEST(TextReader, AnswersTheDefaultWithFailureForWhatIsNoText) {
  const TextRef fallback = makeText("default");
  for (const ObjectRef& value :
       std::vector<ObjectRef>{Number::withInteger(5), nullPlaceholder(), makeDictionary({}),
                              makeText(std::string(33, 'x'))}) {
    bool failed = false;
    EXPECT_EQ(hs_stringFromKey(holding(value), "key", 32, fallback, failed), fallback);
    EXPECT_TRUE(failed) << described(value);
  }
}

TEST(ParameterReaders, NeverClearTheFlag) {
  bool failed = true;
  const DictionaryRef good = makeDictionary(
      {{"flag", Number::withBool(true)}, {"key", Number::withInteger(1)}, {"text", makeText("x")}});
  EXPECT_TRUE(hs_boolFromRequiredKey(good, "flag", failed));
  EXPECT_THAT(readNumber(good, failed), isInteger(1));
  EXPECT_THAT(hs_stringFromKey(good, "text", 32, nullptr, failed), isText("x"));
  EXPECT_TRUE(failed);
}

}  // namespace
}  // namespace wifi_profile
