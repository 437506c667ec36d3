// The texts that tell a person what each key means.
#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "diagnostic/platform/Text.h"
#include "diagnostic/tests/Catalogue.h"
#include "diagnostic/tests/Findings.h"

namespace wifi_profile {
namespace {

// Columns that a report's line leaves for a sentence or an advice.
constexpr std::size_t kRoom = 92;

std::vector<Meaning> everyMeaning() {
  std::vector<Meaning> meanings;
  for (const VerdictFinding& finding : verdictFindings()) {
    meanings.push_back(finding.yes);
    meanings.push_back(finding.no);
  }
  return meanings;
}

Mark markOf(std::string_view key, bool answer) {
  const VerdictFinding& finding = *verdictFinding(key);
  return (answer ? finding.yes : finding.no).mark;
}

TEST(Findings, ExplainEveryResultKeyInTheCataloguesOrder) {
  ASSERT_EQ(verdictFindings().size(), kCatalogue.size());
  for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
    EXPECT_EQ(verdictFindings()[i].key, kCatalogue[i].resultKey);
  }
}

TEST(Findings, ExplainEveryOutputKeyOnceAndNoOther) {
  std::multiset<std::string_view> explained;
  for (const ValueFinding& finding : valueFindings()) explained.insert(finding.key);
  std::set<std::string_view> written;
  for (const CatalogueTest& test : kCatalogue) {
    for (const InformationCopy& copy : test.information()) {
      if (!copy.outputKey.empty()) written.insert(copy.outputKey);
    }
  }
  EXPECT_TRUE(std::equal(explained.begin(), explained.end(), written.begin(), written.end()));
}

TEST(Findings, AreFoundByTheirExactKeyOnly) {
  EXPECT_EQ(verdictFinding("hasPoorSignal")->key, "hasPoorSignal");
  EXPECT_EQ(valueFinding("noise")->unit, "dBm");
  EXPECT_EQ(verdictFinding("HasPoorSignal"), nullptr);
  EXPECT_EQ(verdictFinding("noise"), nullptr);
  EXPECT_EQ(valueFinding("hasPoorSignal"), nullptr);
  EXPECT_EQ(valueFinding(""), nullptr);
}

TEST(Findings, GiveAdviceExactlyWhereThereIsSomethingToDo) {
  for (const Meaning& meaning : everyMeaning()) {
    const bool needsAdvice = meaning.mark == Mark::problem || meaning.mark == Mark::look;
    EXPECT_EQ(!meaning.advice.empty(), needsAdvice) << meaning.sentence;
  }
}

TEST(Findings, AskQuestionsAndAnswerInSentences) {
  for (const VerdictFinding& finding : verdictFindings()) {
    EXPECT_TRUE(finding.question.ends_with('?')) << finding.key;
  }
  for (const Meaning& meaning : everyMeaning()) {
    EXPECT_TRUE(meaning.sentence.ends_with('.')) << meaning.sentence;
    EXPECT_TRUE(meaning.advice.empty() || meaning.advice.ends_with('.')) << meaning.advice;
  }
  for (const ValueFinding& finding : valueFindings()) {
    EXPECT_FALSE(finding.name.empty()) << finding.key;
    EXPECT_TRUE(finding.explanation.ends_with('.')) << finding.key;
  }
}

TEST(Findings, NeverSayTheSameOfTwoAnswers) {
  std::set<std::string_view> sentences;
  for (const Meaning& meaning : everyMeaning()) {
    EXPECT_TRUE(sentences.insert(meaning.sentence).second) << meaning.sentence;
  }
}

TEST(Findings, FitALineOfTheReport) {
  for (const Meaning& meaning : everyMeaning()) {
    EXPECT_LE(characterCount(meaning.sentence), kRoom) << meaning.sentence;
    EXPECT_LE(characterCount(meaning.advice), kRoom) << meaning.advice;
  }
}

TEST(Findings, TakeAYesForGoodNewsWhereTheTestAsksForSomethingWanted) {
  for (const char* key : {"pingedLAN", "pingedWAN", "resolvedDNS", "reachedOrvane",
                          "retrievedOrvane", "isIPv4Assigned"}) {
    EXPECT_EQ(markOf(key, true), Mark::good) << key;
    EXPECT_EQ(markOf(key, false), Mark::problem) << key;
  }
  EXPECT_EQ(markOf("foundScanResults", true), Mark::good);
  EXPECT_EQ(markOf("foundScanResults", false), Mark::look);
}

TEST(Findings, TakeAYesForBadNewsWhereTheTestAsksForAFault) {
  for (const char* key :
       {"isUsingOpenSecurity", "isUsingWEPSecurity", "isUsingWPASecurity", "hasPoorSignal"}) {
    EXPECT_EQ(markOf(key, true), Mark::problem) << key;
    EXPECT_EQ(markOf(key, false), Mark::good) << key;
  }
}

TEST(Findings, TakeAUsersOwnSettingForWorthALookNotForAProblem) {
  for (const char* key :
       {"isUsingCustomIPv4", "isUsingCustomIPv6", "isUsingCustomDNS", "isUsingCustomWebProxy"}) {
    EXPECT_EQ(markOf(key, true), Mark::look) << key;
    EXPECT_EQ(markOf(key, false), Mark::good) << key;
  }
}

TEST(Findings, TakeTheKindOfANetworkForAPlainFact) {
  for (const char* key : {"isHostedByBrellinBaseStation", "isNimoPersonalHotspot",
                          "isPasspointNetwork", "foundHiddenNetworks"}) {
    EXPECT_EQ(markOf(key, true), Mark::plain) << key;
    EXPECT_EQ(markOf(key, false), Mark::plain) << key;
  }
}

TEST(Findings, TakeTheTimesOfARoutersPingsForAValueThatNeedNotBeThere) {
  EXPECT_EQ(valueFinding("pingLANResult")->absence, Absence::normal);
  EXPECT_EQ(valueFinding("pingWANResult")->absence, Absence::gap);
}

}  // namespace
}  // namespace wifi_profile
