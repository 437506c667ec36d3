#include <limits>

#include "diagnostic/controller/NullSafeValues.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

TEST(NullSafeValues, LetAValueThroughAsTheVeryObject) {
  const TextRef text = makeText("");
  const NumberRef number = Number::withInteger(0);
  const DictionaryRef dictionary = makeDictionary({});
  EXPECT_THAT(stringOrNull(text), isTheVery(text));
  EXPECT_THAT(numberOrNull(number), isTheVery(number));
  EXPECT_THAT(dictionaryOrNull(dictionary), isTheVery(dictionary));
}

TEST(NullSafeValues, PutTheNullPlaceholderInPlaceOfNil) {
  EXPECT_THAT(stringOrNull(nullptr), isNull());
  EXPECT_THAT(numberOrNull(nullptr), isNull());
  EXPECT_THAT(dictionaryOrNull(nullptr), isNull());
}

TEST(NullSafeValues, TakeOnlyNaNForNoNumber) {
  using Limits = std::numeric_limits<double>;
  EXPECT_THAT(numberOrNullForDouble(Limits::quiet_NaN()), isNull());
  EXPECT_THAT(numberOrNullForDouble(-Limits::quiet_NaN()), isNull());
  for (const double value : {0.0, -1.5, Limits::max(), Limits::infinity(), -Limits::infinity()}) {
    EXPECT_THAT(numberOrNullForDouble(value), isDouble(value));
  }
}

TEST(NullSafeValues, AreStrippedOfPlaceholdersInPlace) {
  Dictionary dictionary({{"a", nullPlaceholder()},
                         {"b", Number::withInteger(1)},
                         {"c", nullPlaceholder()},
                         {"d", makeText("")}});
  removeNullFromDictionary(dictionary);
  const Dictionary::Entries left = dictionary.entries();
  ASSERT_EQ(left.size(), 2U);
  EXPECT_THAT(left.at("b"), isInteger(1));
  EXPECT_THAT(left.at("d"), isText(""));
}

TEST(NullSafeValues, AreStrippedAtTheTopLevelOnly) {
  const DictionaryRef nested = makeDictionary({{"a", nullPlaceholder()}});
  Dictionary dictionary({{"nested", nested}});
  removeNullFromDictionary(dictionary);
  EXPECT_THAT(dictionary.objectForKey("nested"), isTheVery(nested));
  EXPECT_THAT(nested->objectForKey("a"), isNull());
}

TEST(NullSafeValues, AreStrippedFromNothingToNothing) {
  Dictionary empty;
  removeNullFromDictionary(empty);
  EXPECT_TRUE(empty.entries().empty());
}

}  // namespace
}  // namespace wifi_profile
