#include <atomic>
#include <thread>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Property.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;

TEST(Dictionary, GivesTheVeryObjectsItHolds) {
  const ObjectRef one = makeText("1");
  Dictionary dictionary;
  dictionary.setObject(one, "one");
  EXPECT_THAT(dictionary.objectForKey("one"), isTheVery(one));
}

TEST(Dictionary, AnswersNilForAKeyItDoesNotHold) {
  EXPECT_THAT(Dictionary().objectForKey("none"), isNil());
  EXPECT_THAT(Dictionary({{"Key", makeText("")}}).objectForKey("key"), isNil());
}

TEST(Dictionary, ReplacesWhatAKeyHeld) {
  Dictionary dictionary({{"key", makeText("old")}});
  dictionary.setObject(makeText("new"), "key");
  EXPECT_THAT(dictionary.objectForKey("key"), isText("new"));
  EXPECT_EQ(dictionary.entries().size(), 1U);
}

TEST(Dictionary, RemovesAKeyOnce) {
  Dictionary dictionary({{"key", makeText("")}, {"other", makeText("")}});
  dictionary.removeObjectForKey("key");
  dictionary.removeObjectForKey("key");
  EXPECT_THAT(dictionary.objectForKey("key"), isNil());
  EXPECT_EQ(dictionary.entries().size(), 1U);
}

TEST(Dictionary, HoldsTheNullPlaceholderAsAValue) {
  const DictionaryRef dictionary = makeDictionary({{"key", nullPlaceholder()}});
  EXPECT_THAT(dictionary->objectForKey("key"), isNull());
}

TEST(Dictionary, OrdersItsKeysByBytes) {
  const DictionaryRef dictionary = makeDictionary({{"b", makeText("")},
                                                   {"a", makeText("")},
                                                   {"B", makeText("")},
                                                   {"\u00e9", makeText("")},
                                                   {"1", makeText("")}});
  EXPECT_THAT(keysOf(dictionary), ElementsAre("1", "B", "a", "b", "\u00e9"));
}

TEST(Dictionary, GivesItsEntriesAsTheyStand) {
  Dictionary dictionary({{"a", makeText("")}});
  const Dictionary::Entries before = dictionary.entries();
  dictionary.setObject(makeText(""), "b");
  EXPECT_EQ(before.size(), 1U);
  EXPECT_EQ(dictionary.entries().size(), 2U);
}

TEST(Dictionary, MayBeReadWhileAnotherThreadWrites) {
  Dictionary dictionary;
  constexpr int kKeys = 50;
  std::atomic<bool> done = false;
  std::thread writer([&] {
    for (int round = 0; round < 20; ++round) {
      for (int i = 0; i < kKeys; ++i) {
        dictionary.setObject(Number::withInteger(i), std::to_string(i));
        if (i % 7 == 0) dictionary.removeObjectForKey(std::to_string(i));
      }
    }
    done = true;
  });
  bool sane = true;
  while (!done) {
    for (const auto& [key, value] : dictionary.entries()) {
      sane = sane && std::to_string(std::get<std::int64_t>(as<Number>(value)->value())) == key;
    }
    if (const ObjectRef one = dictionary.objectForKey("1")) {
      sane = sane && holdsNumber<std::int64_t>(one, 1);
    }
  }
  writer.join();
  EXPECT_TRUE(sane);
  EXPECT_EQ(dictionary.entries().size(), 42U);
}

TEST(Object, ReadsAsItsOwnTypeOnly) {
  const ObjectRef text = makeText("x");
  EXPECT_EQ(as<Text>(text), text);
  EXPECT_EQ(as<Number>(text), nullptr);
  EXPECT_EQ(as<Array>(nullPlaceholder()), nullptr);
  EXPECT_EQ(as<Text>(nullptr), nullptr);
}

TEST(NullPlaceholder, IsOneObjectAndNotNil) {
  EXPECT_EQ(nullPlaceholder(), nullPlaceholder());
  EXPECT_TRUE(isNullPlaceholder(nullPlaceholder()));
  EXPECT_FALSE(isNullPlaceholder(nullptr));
  EXPECT_FALSE(isNullPlaceholder(makeText("")));
}

TEST(Property, HandsOutWhatItHeldWhenExchanged) {
  Property<int> property(1);
  EXPECT_EQ(property.exchange(2), 1);
  EXPECT_EQ(property(), 2);
}

// What a value's end does with the property must not meet the property's own lock.
TEST(Property, MayBeReadFromTheDestructorOfTheValueItLoses) {
  Property<std::shared_ptr<int>> property;
  int seen = 0;
  property.set(std::shared_ptr<int>(new int(1), [&](const int* number) {
    delete number;
    seen = *property();
  }));
  property.set(std::make_shared<int>(2));
  EXPECT_EQ(seen, 2);
  property.set(nullptr);
}

TEST(Property, GivesAnExchangedValueToOneOfTwoThreadsOnly) {
  for (int round = 0; round < 50; ++round) {
    Property<int> property(1);
    std::atomic<int> taken = 0;
    const auto take = [&] { taken += property.exchange(0); };
    std::thread other(take);
    take();
    other.join();
    EXPECT_EQ(taken, 1);
  }
}

}  // namespace
}  // namespace wifi_profile
