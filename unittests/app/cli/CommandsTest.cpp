// The commands that list the catalogue and explain its keys.
#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "app/cli/TestsCommand.h"
#include "diagnostic/platform/Text.h"
#include "diagnostic/tests/Catalogue.h"
#include "report/Explanation.h"
#include "support/TextParts.h"

namespace wifi_profile::cli {
namespace {

TEST(TestsCommand, ListsEveryTestWithItsLabelAndKeys) {
  const std::string table = testsText();
  for (const CatalogueTest& test : kCatalogue) {
    EXPECT_TRUE(contains(table, test.member()));
    EXPECT_TRUE(contains(table, test.label));
    EXPECT_TRUE(contains(table, test.resultKey));
  }
}

TEST(TestsCommand, AlignsItsColumnsWithin120OfThem) {
  const auto lines = linesOf(testsText());
  const std::size_t label = lines.front().find("LABEL");
  const std::size_t batch = lines.front().find("BATCH");
  for (const std::string& line : lines) {
    EXPECT_LE(line.size(), 120U) << line;
    EXPECT_FALSE(line.ends_with(' ')) << line;
    for (const std::size_t column : {label, batch}) {
      const bool isRowOfATest = line.front() != ' ' || line[1] != ' ';
      if (isRowOfATest) {
        EXPECT_EQ(line[column - 1], ' ') << line;
        EXPECT_NE(line[column], ' ') << line;
      }
    }
  }
}

TEST(TestsCommand, ShowsBothConfigurationsOfATestInTwoBatches) {
  const auto lines = linesOf(testsText());
  const auto row = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
    return line.starts_with("32  PoorSignal");
  });
  ASSERT_LT(row, lines.end() - 1);
  EXPECT_TRUE(row[0].ends_with("currentNetwork   currentNetworkConfiguration"));
  EXPECT_TRUE(row[1].ends_with("selectedNetwork  configuration"));
  EXPECT_TRUE(contains(row[1], "hasPoorSignal, RSSI, noise"));
}

TEST(TestsCommand, WritesTheJsonOfATestOfTwoBatches) {
  EXPECT_TRUE(contains(
      testsJson(),
      R"({"batches":["currentNetwork","selectedNetwork"],)"
      R"("configuration":["currentNetworkConfiguration","configuration"],"id":32,)"
      R"("keys":["hasPoorSignal","RSSI","noise"],"label":"Poor Signal","name":"PoorSignal"})"));
}

TEST(TestsCommand, WritesTheJsonOfADeviceTest) {
  EXPECT_TRUE(contains(testsJson(),
                       R"({"batches":["device"],"configuration":["configuration"],"id":16,)"
                       R"("keys":["isUsingCustomDNS"],"label":"Custom DNS","name":"CustomDNS"})"));
}

TEST(TestsCommand, WritesTheJsonOfTheNetworkListsOwnTestWithoutABatch) {
  EXPECT_TRUE(contains(testsJson(),
                       R"({"batches":[],"configuration":["freshScanConfiguration"],"id":31,)"
                       R"("keys":["foundScanResults"],)"));
}

TEST(TestsCommand, WritesJsonOnOneLineThatEnds) {
  const std::string json = testsJson();
  EXPECT_TRUE(json.starts_with("[{"));
  EXPECT_TRUE(json.ends_with("}]\n"));
  EXPECT_EQ(linesOf(json).size(), 1U);
}

TEST(ExplainCommand, KnowsEveryKeyOfTheRecord) {
  for (const CatalogueTest& test : kCatalogue) {
    EXPECT_TRUE(report::explainText(test.resultKey).has_value()) << test.resultKey;
  }
  for (const InformationCopy* value : outputValues()) {
    EXPECT_TRUE(report::explainText(value->outputKey).has_value()) << value->outputKey;
  }
}

TEST(ExplainCommand, TellsBothAnswersTheAdviceAndTheTestOfAVerdict) {
  const std::string text = report::explainText("hasPoorSignal").value();
  const CatalogueTest& test = catalogueTest(DiagnosticsTestID::PoorSignal);
  EXPECT_TRUE(contains(text, test.question));
  EXPECT_TRUE(contains(text, test.yes.sentence));
  EXPECT_TRUE(contains(text, test.yes.advice));
  EXPECT_TRUE(contains(text, test.no.sentence));
  EXPECT_TRUE(contains(text, "32  PoorSignal (\"Poor Signal\")"));
  EXPECT_TRUE(contains(text, "currentNetwork and selectedNetwork"));
  EXPECT_TRUE(contains(text, "RSSI, noise"));
}

TEST(ExplainCommand, TellsHowAVerdictIsFoundOut) {
  const std::string text = report::explainText("hasPoorSignal").value();
  EXPECT_TRUE(contains(text, "\n  Threshold       below -75 dBm (`poorSignalBelow`)\n"));
  for (const char* heading : {"Measured", "From", "Why", "Not known when"}) {
    EXPECT_TRUE(contains(text, "\n  " + std::string(heading) + "  ")) << heading;
  }
}

TEST(ExplainCommand, TellsUnitAndEveryWriterOfAValue) {
  EXPECT_TRUE(contains(report::explainText("RSSI").value(), "in dBm"));
  const std::string text = report::explainText("security").value();
  for (const char* writer : {"NoSecurity", "LegacySecurityWEP", "LegacySecurityWPA"}) {
    EXPECT_TRUE(contains(text, writer)) << writer;
  }
}

TEST(ExplainCommand, TellsWhenAValueIsWrittenOnlySometimes) {
  EXPECT_TRUE(
      contains(report::explainText("brellinModelName").value(), "Only when the test passed."));
  EXPECT_TRUE(contains(report::explainText("IPv4ConfigMethod").value(),
                       "Only when the test did not pass."));
  EXPECT_FALSE(contains(report::explainText("RSSI").value(), "Only when"));
}

TEST(ExplainCommand, ShowsTheIntegersOfTheOneVerdictThatIsNoBoolean) {
  const std::string text = report::explainText("foundScanResults").value();
  EXPECT_TRUE(contains(text, "  1      The scan found networks."));
  EXPECT_TRUE(contains(text, "  0      The scan found no network."));
}

TEST(ExplainCommand, KeepsItsLinesWithinABearableWidth) {
  const auto check = [](std::string_view key) {
    for (const std::string& line : linesOf(report::explainText(key).value())) {
      EXPECT_LE(characterCount(line), 110U) << line;
    }
  };
  for (const CatalogueTest& test : kCatalogue) check(test.resultKey);
  for (const InformationCopy* value : outputValues()) check(value->outputKey);
}

TEST(ExplainCommand, HasNothingToSayOfAnUnknownKey) {
  EXPECT_FALSE(report::explainText("hasPoorSingal").has_value());
  EXPECT_FALSE(report::explainText("rssi").has_value());
  EXPECT_FALSE(report::explainText("").has_value());
}

TEST(ExplainCommand, SuggestsTheKeyThatWasMeant) {
  EXPECT_EQ(report::similarKeys("hasPoorSingal").front(), "hasPoorSignal");
  EXPECT_EQ(report::similarKeys("rssi").front(), "RSSI");
  EXPECT_EQ(report::similarKeys("captive").front(), "isCaptive");
}

TEST(ExplainCommand, SuggestsAFewKeysAtMost) {
  EXPECT_EQ(report::similarKeys("isUsing").size(), 3U);
}

TEST(ExplainCommand, SuggestsNothingForWhatLooksLikeNoKey) {
  EXPECT_TRUE(report::similarKeys("").empty());
  EXPECT_TRUE(report::similarKeys("weather in Paris").empty());
  EXPECT_TRUE(report::similarKeys(std::string(100'000, 'i')).empty());
  EXPECT_TRUE(report::similarKeys("\xFF\xFE\x1B[2J").empty());
}

}  // namespace
}  // namespace wifi_profile::cli
