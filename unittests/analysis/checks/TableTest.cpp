// Rules that every row keeps, whatever the facts are.
#include <random>
#include <set>

#include "analysis/checks/CheckFixture.h"
#include "analysis/facts/RandomFacts.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile::checks {
namespace {

TEST(TableOfChecks, HasARowForEveryTestInOrder) {
  ASSERT_EQ(allChecks().size(), kCatalogue.size());
  for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
    EXPECT_EQ(allChecks()[i].id, kCatalogue[i].id);
    EXPECT_EQ(&checkOf(kCatalogue[i].id), &allChecks()[i]);
  }
}

TEST(TableOfChecks, SaysWhatItMeasuresInTextsThatFitATable) {
  for (const Check& check : allChecks()) {
    for (const std::string_view text :
         {check.measures, check.from, check.threshold, check.why, check.unknownWhen}) {
      EXPECT_EQ(text.find_first_of("|\n"), std::string_view::npos) << text;
    }
    EXPECT_FALSE(check.measures.empty() || check.from.empty() || check.threshold.empty() ||
                 check.why.empty() || check.unknownWhen.empty())
        << nameOf(check.id);
  }
}

TEST(TableOfChecks, NamesTheDefaultThresholds) {
  const Settings settings = defaultSettings();
  const std::vector<std::pair<Id, int>> expected{
      {Id::PoorSignal, settings.poorSignalBelow},
      {Id::LongBeaconInterval, settings.longBeaconIntervalAbove},
      {Id::LongDTIMInterval, settings.longDtimPeriodAbove},
      {Id::LargePNL, settings.largeSavedListAbove},
      {Id::BluetoothConnected, settings.bluetoothConnectedAbove},
      {Id::BluetoothPaired, settings.bluetoothPairedAbove},
      {Id::CongestedChannel, settings.congestedUtilization},
      {Id::CongestedChannel, static_cast<int>(settings.congestedNeighbours)}};
  for (const auto& [id, number] : expected) {
    EXPECT_NE(checkOf(id).threshold.find(" " + std::to_string(number) + " "),
              std::string_view::npos)
        << nameOf(id);
  }
  EXPECT_EQ(settings.congestedBusyShare, 0.7);
  EXPECT_NE(checkOf(Id::CongestedChannel).threshold.find(" 0.7 "), std::string_view::npos);
}

TEST(TableOfChecks, KnowsNothingOutOfNothing) {
  const facts::Facts nothing;
  const Settings settings = defaultSettings();
  for (const TextRef& name : {TextRef(), makeText("Cafe"), makeText("")}) {
    for (const Check& check : allChecks()) {
      EXPECT_FALSE(check.answer({nothing, settings, name})) << nameOf(check.id);
    }
  }
}

class EveryCheck : public CheckTest, public testing::WithParamInterface<unsigned> {};

// Whether two answers are the same, without looking into lists and records.
bool isSame(const Answer& one, const Answer& other) {
  if (bool(one) != bool(other)) return false;
  if (const Error* unknown = one ? nullptr : &one.error()) return *unknown == other.error();
  const auto& result = *one;
  const auto& otherResult = *other;
  const auto keys = [](const DiagnosticsTestResult& of) {
    std::set<std::string> found;
    for (const auto& [key, value] : of.info->entries()) found.insert(key);
    return found;
  };
  return result.result == otherResult.result && keys(result) == keys(otherResult);
}

// Facts that `check` does not name are forgotten.
facts::Facts onlyNeeded(const Check& check, facts::Facts facts) {
  facts::forget(facts, [&](facts::Fact fact) { return !check.needs.holds(fact); });
  return facts;
}

TEST_P(EveryCheck, AnswersAnyFactsAndReadsThoseItNamesOnly) {
  std::mt19937 random(GetParam());
  for (int i = 0; i < 200; ++i) {
    facts = facts::randomFacts(random);
    settings = facts::randomSettings(random);
    networkName = facts::randomQuestionName(random);
    for (const Check& check : allChecks()) {
      const Answer answer = ask(check.id);
      const facts::Facts needed = onlyNeeded(check, facts);
      EXPECT_TRUE(isSame(answer, check.answer({needed, settings, networkName})))
          << nameOf(check.id) << ", seed " << GetParam() << ", facts number " << i;
      if (const DiagnosticsTestResult* result = answer ? &*answer : nullptr) {
        std::set<std::string_view> known;
        for (const auto& copy : catalogueTest(check.id).information()) known.insert(copy.infoKey);
        for (const auto& [key, value] : result->info->entries()) {
          EXPECT_TRUE(known.contains(key)) << nameOf(check.id) << " tells " << key;
          EXPECT_NE(value, nullptr);
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EveryCheck, testing::Range(1U, 9U));

}  // namespace
}  // namespace wifi_profile::checks
