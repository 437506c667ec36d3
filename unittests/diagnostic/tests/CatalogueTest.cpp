// The catalogue against the list written by hand, and its texts.

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "diagnostic/platform/Text.h"
#include "diagnostic/tests/Catalogue.h"
#include "diagnostic/tests/ExpectedTests.h"

namespace wifi_profile {
namespace {

TEST(Catalogue, HoldsTheFortyOneTestsInOrderOfTheirNumbers) {
  std::vector<int> numbers;
  std::vector<int> expected;
  for (const CatalogueTest& row : kCatalogue) numbers.push_back(static_cast<int>(row.id));
  for (const ExpectedTest& test : expectedTests()) expected.push_back(test.number);
  std::ranges::sort(expected);
  EXPECT_EQ(expected.size(), 41U);
  EXPECT_EQ(numbers, expected);
}

TEST(Catalogue, NamesMembersBothWays) {
  for (const ExpectedTest& test : expectedTests()) {
    EXPECT_EQ(nameOf(test.id()), test.member());
    EXPECT_EQ(testNamed(test.member()), test.id());
  }
}

TEST(Catalogue, KnowsNoNameForNumbersThatAreNeverRequested) {
  for (const int number : {0, 1, 2, 4, 5, 10, 21, 23, 49}) {
    EXPECT_EQ(nameOf(static_cast<DiagnosticsTestID>(number)), "") << number;
  }
  EXPECT_EQ(testNamed("pingLAN"), std::nullopt);
  EXPECT_EQ(testNamed(""), std::nullopt);
}

// Columns that a report's line leaves for a sentence or an advice.
constexpr std::size_t kRoom = 92;

std::vector<Meaning> everyMeaning() {
  std::vector<Meaning> meanings;
  for (const CatalogueTest& test : kCatalogue) {
    meanings.push_back(test.yes);
    meanings.push_back(test.no);
  }
  return meanings;
}

Mark markOf(std::string_view key, bool answer) {
  const CatalogueTest& test = *testWithResultKey(key);
  return (answer ? test.yes : test.no).mark;
}

TEST(Catalogue, RowsAndValuesAreFoundByTheirExactKeysOnly) {
  EXPECT_EQ(testWithResultKey("hasPoorSignal"), &catalogueTest(DiagnosticsTestID::PoorSignal));
  EXPECT_EQ(valueWithOutputKey("noise")->unit, "dBm");
  EXPECT_EQ(testWithResultKey("HasPoorSignal"), nullptr);
  EXPECT_EQ(testWithResultKey("noise"), nullptr);
  EXPECT_EQ(valueWithOutputKey("hasPoorSignal"), nullptr);
  EXPECT_EQ(valueWithOutputKey(""), nullptr);
}

TEST(CatalogueTexts, GiveAdviceExactlyWhereThereIsSomethingToDo) {
  for (const Meaning& meaning : everyMeaning()) {
    const bool needsAdvice = meaning.mark == Mark::problem || meaning.mark == Mark::look;
    EXPECT_EQ(!meaning.advice.empty(), needsAdvice) << meaning.sentence;
  }
}

TEST(CatalogueTexts, AskQuestionsAndAnswerInSentences) {
  for (const CatalogueTest& test : kCatalogue) {
    EXPECT_TRUE(test.question.ends_with('?')) << test.resultKey;
  }
  for (const Meaning& meaning : everyMeaning()) {
    EXPECT_TRUE(meaning.sentence.ends_with('.')) << meaning.sentence;
    EXPECT_TRUE(meaning.advice.empty() || meaning.advice.ends_with('.')) << meaning.advice;
  }
  for (const InformationCopy* value : outputValues()) {
    EXPECT_TRUE(value->explanation.ends_with('.')) << value->outputKey;
  }
}

TEST(CatalogueTexts, NeverSayTheSameOfTwoAnswers) {
  std::set<std::string_view> sentences;
  for (const Meaning& meaning : everyMeaning()) {
    EXPECT_TRUE(sentences.insert(meaning.sentence).second) << meaning.sentence;
  }
}

TEST(CatalogueTexts, FitALineOfTheReport) {
  for (const Meaning& meaning : everyMeaning()) {
    EXPECT_LE(characterCount(meaning.sentence), kRoom) << meaning.sentence;
    EXPECT_LE(characterCount(meaning.advice), kRoom) << meaning.advice;
  }
}

TEST(CatalogueTexts, TakeAYesForGoodNewsWhereTheTestAsksForSomethingWanted) {
  for (const char* key : {"pingedLAN", "pingedWAN", "resolvedDNS", "reachedOrvane",
                          "retrievedOrvane", "isIPv4Assigned"}) {
    EXPECT_EQ(markOf(key, true), Mark::good) << key;
    EXPECT_EQ(markOf(key, false), Mark::problem) << key;
  }
  EXPECT_EQ(markOf("foundScanResults", true), Mark::good);
  EXPECT_EQ(markOf("foundScanResults", false), Mark::look);
}

TEST(CatalogueTexts, TakeAYesForBadNewsWhereTheTestAsksForAFault) {
  for (const char* key :
       {"isUsingOpenSecurity", "isUsingWEPSecurity", "isUsingWPASecurity", "hasPoorSignal"}) {
    EXPECT_EQ(markOf(key, true), Mark::problem) << key;
    EXPECT_EQ(markOf(key, false), Mark::good) << key;
  }
}

TEST(CatalogueTexts, TakeAUsersOwnSettingForWorthALookNotForAProblem) {
  for (const char* key :
       {"isUsingCustomIPv4", "isUsingCustomIPv6", "isUsingCustomDNS", "isUsingCustomWebProxy"}) {
    EXPECT_EQ(markOf(key, true), Mark::look) << key;
    EXPECT_EQ(markOf(key, false), Mark::good) << key;
  }
}

TEST(CatalogueTexts, TakeTheKindOfANetworkForAPlainFact) {
  for (const char* key : {"isHostedByBrellinBaseStation", "isNimoPersonalHotspot",
                          "isPasspointNetwork", "foundHiddenNetworks"}) {
    EXPECT_EQ(markOf(key, true), Mark::plain) << key;
    EXPECT_EQ(markOf(key, false), Mark::plain) << key;
  }
}

TEST(CatalogueTexts, TakeTheTimesOfARoutersPingsForAValueThatNeedNotBeThere) {
  EXPECT_EQ(valueWithOutputKey("pingLANResult")->absence, Absence::normal);
  EXPECT_EQ(valueWithOutputKey("pingWANResult")->absence, Absence::gap);
}

}  // namespace
}  // namespace wifi_profile
