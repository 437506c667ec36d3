// The report that a person reads.
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <vector>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"
#include "report/ReportFixture.h"
#include "report/ReportText.h"
#include "runtime/SafeText.h"
#include "support/TextParts.h"

namespace wifi_profile::report {
namespace {

ObjectRef list(std::vector<ObjectRef> elements) {
  return std::make_shared<const Array>(std::move(elements));
}

class Report : public ReportFixture {
 protected:
  std::string report(bool color = false) const { return reportText(document(), {color}); }
};

std::size_t timesIn(const std::string& whole, std::string_view part) {
  std::size_t times = 0;
  for (std::size_t at = 0; (at = whole.find(part, at)) != std::string::npos; at += part.size()) {
    ++times;
  }
  return times;
}

std::string headline(const std::string& report) { return report.substr(0, report.find('\n')); }

TEST_F(Report, SumsUpInItsFirstLine) {
  joinTo("Home");
  current_ = {{"pingedLAN", yes()},
              {"pingedWAN", no()},
              {"hasPoorSignal", yes()},
              {"isCaptive", yes()},
              {"isPasspointNetwork", no()}};
  EXPECT_EQ(headline(report()), "Wi-Fi profile: 2 problems, 1 thing worth a look, 1 fine, 1 fact");
}

TEST_F(Report, SaysThatThereAreNoProblems) {
  joinTo("Home");
  device_ = {{"isUsingCustomDNS", no()}};
  EXPECT_EQ(headline(report()), "Wi-Fi profile: no problems found: 1 fine");
  request(DiagnosticsTestID::CustomIPv4);
  EXPECT_EQ(headline(report()),
            "Wi-Fi profile: no problems found in what was tested: 1 fine, 1 not known");
}

TEST_F(Report, SaysSoWhenNothingWasTested) {
  EXPECT_EQ(headline(report()), "Wi-Fi profile: nothing was tested");
  EXPECT_EQ(headline(reportText(reportOf({}), {})), "Wi-Fi profile: nothing was tested");
}

TEST_F(Report, PutsTheMoreUrgentFirst) {
  current_ = {{"pingedLAN", yes()},
              {"isPasspointNetwork", no()},
              {"isCaptive", yes()},
              {"hasPoorSignal", yes()}};
  const std::string shown = report();
  EXPECT_LT(shown.find("✗ The signal"), shown.find("! The network has a sign-in page"));
  EXPECT_LT(shown.find("! The network has a sign-in page"), shown.find("· The network is not"));
  EXPECT_LT(shown.find("· The network is not"), shown.find("✓ The router answers."));
}

TEST_F(Report, GivesAdviceBeneathAProblem) {
  current_ = {{"pingedLAN", no()}};
  EXPECT_TRUE(contains(report(), "  ✗ The router does not answer.\n    → Move closer"));
}

TEST_F(Report, ShowsAValueWithItsUnitInTheSentenceOfItsVerdict) {
  current_ = {{"hasPoorSignal", yes()}, {"RSSI", integer(-78)}, {"noise", decimal(-92.5)}};
  EXPECT_TRUE(contains(report(), "✗ The signal is weak (RSSI -78 dBm, noise -92.5 dBm).\n"));
}

TEST_F(Report, ShowsASharedValueOnceWithTheMostUrgentFinding) {
  current_ = {{"isUsingOpenSecurity", no()},
              {"isUsingWEPSecurity", yes()},
              {"isUsingWPASecurity", no()},
              {"security", text("WEP")}};
  const std::string shown = report();
  EXPECT_EQ(timesIn(shown, "security WEP"), 1U);
  EXPECT_TRUE(contains(shown, "✗ The network uses WEP, which was broken long ago (security WEP)."));
}

TEST_F(Report, ShowsASharedValueInEverySectionThatHoldsIt) {
  current_ = {{"isUsingOpenSecurity", no()}, {"security", text("WPA3")}};
  selected_ = {{"isUsingOpenSecurity", no()}, {"security", text("WPA2")}};
  EXPECT_TRUE(contains(report(), "(security WPA3)"));
  EXPECT_TRUE(contains(report(), "(security WPA2)"));
}

TEST_F(Report, ShowsAListWithStrokesBetween) {
  current_ = {{"hasConflictingPHYMode11AC", no()},
              {"supportedPHYModes", list({text("11n"), text("11ac")})}};
  EXPECT_TRUE(contains(report(), "(radio modes 11n/11ac)."));
}

TEST_F(Report, ShowsPingsWithTheirUnitsAndTheMissingAsUnknown) {
  current_ = {{"pingedLAN", yes()},
              {"pingLANResult", makeDictionary({{"SSID", nullPlaceholder()},
                                                {"count", integer(10)},
                                                {"packetLoss", decimal(0)},
                                                {"min", decimal(1.25)},
                                                {"max", decimal(std::nan(""))},
                                                {"avg", nullPlaceholder()},
                                                {"stddev", decimal(0.5)},
                                                {"timestamp", text("2024-05-01T10:00:00Z")}})}};
  const std::string shown = report();
  EXPECT_TRUE(contains(shown, "pings: count 10, loss 0 %, mean unknown, least 1.25 ms, "));
  EXPECT_TRUE(contains(shown, "most unknown, deviation 0.5 ms,"));
  EXPECT_TRUE(contains(shown, "interface unknown, at 2024-05-01T10:00:00Z"));
}

TEST_F(Report, ShowsTheSecurityOfARememberedNetworkByItsName) {
  const auto shownFor = [this](const ObjectRef& security) {
    current_ = {{"isCaptive", no()},
                {"preferredNetwork", makeDictionary({{"security", security}})}};
    return report();
  };
  EXPECT_TRUE(contains(shownFor(integer(5)), "security WPA2 Personal)"));
  EXPECT_TRUE(contains(shownFor(integer(11)), "security unknown)"));
  EXPECT_TRUE(contains(shownFor(integer(77)), "security 77)"));
  EXPECT_TRUE(contains(shownFor(yes()), "security yes)"));
}

TEST_F(Report, TakesTheScansIntegerForAVerdict) {
  planned_ = false;
  current_ = {{"foundScanResults", integer(0)}};
  EXPECT_TRUE(contains(report(), "! The scan found no network."));
  current_ = {{"foundScanResults", integer(1)}};
  EXPECT_TRUE(contains(report(), "✓ The scan found networks."));
}

TEST_F(Report, NamesTheNetworksInTheHeadings) {
  joinTo("Home");
  selectedName_ = makeText("Cafe");
  EXPECT_TRUE(contains(report(), "\nCurrent network: Home\n"));
  EXPECT_TRUE(contains(report(), "\nSelected network: Cafe\n"));
}

TEST_F(Report, SaysWhyTheNetworkSectionsAreEmpty) {
  const std::string shown = report();
  EXPECT_TRUE(contains(shown, "Current network\n  The device is not joined to a network.\n"));
  EXPECT_TRUE(contains(shown, "Selected network\n  No other network was selected.\n"));
}

TEST_F(Report, SaysThatTheSelectedNetworkIsTheCurrentOne) {
  joinTo("Home");
  selectedName_ = makeText("Home");
  EXPECT_TRUE(contains(report(), "Selected network: Home\n  It is the current network"));
}

TEST_F(Report, SaysThatANameAsksNotToBeSurveyed) {
  joinTo("Home_NoMap");
  selectedName_ = makeText("Cafe_nomap");
  statusCode_ = -7;
  EXPECT_EQ(timesIn(report(), "  Not tested: its name ends with _nomap"), 2U);
}

TEST_F(Report, SaysThatTheStatusCouldNotBeAsked) {
  collector_.statusWasQueried(Error{Reason::noService, "no bus"});
  EXPECT_TRUE(contains(report(), "could not be asked which network it is joined to"));
  EXPECT_TRUE(contains(report(), "no bus"));
}

TEST_F(Report, SaysWhyARunWasCutShort) {
  planned_ = false;
  for (const std::int64_t code : {-2, -3, -4, -5}) {
    statusCode_ = code;
    const std::string shown = report();
    EXPECT_EQ(headline(shown), "Wi-Fi profile: ended early, before the tests");
    EXPECT_EQ(timesIn(shown, "  ✗ "), 1U) << code;
    EXPECT_TRUE(contains(shown, "Wi-Fi")) << code;
    EXPECT_FALSE(contains(shown, "\nDevice\n")) << code;
  }
}

TEST_F(Report, KeepsTheScanOfARunThatWasCutShort) {
  planned_ = false;
  statusCode_ = -5;
  current_ = {{"foundScanResults", integer(1)}};
  EXPECT_TRUE(contains(report(), "\nNetworks in range\n  ✓ The scan found networks.\n"));
}

TEST_F(Report, ListsWhatCouldNotBeFoundOutWithTheReason) {
  request(DiagnosticsTestID::ResolveDNS);
  fail("timed out");
  request(DiagnosticsTestID::PingLAN);
  const std::string shown = report();
  EXPECT_TRUE(contains(shown,
                       "? Can site names be looked up (DNS)? "
                       "(timed out)\n"));
  EXPECT_TRUE(contains(shown, "? Does the router answer? (reason unknown)\n"));
  EXPECT_TRUE(contains(headline(shown), "2 tests without an answer"));
}

TEST_F(Report, SaysWhatIsMissingOfAnAnswerInItsSentence) {
  request(DiagnosticsTestID::PoorSignal);
  answer().values = {{"RSSI", nullptr}};
  current_ = {{"hasPoorSignal", no()}};
  const std::string shown = report();
  EXPECT_TRUE(contains(shown, "✓ The signal is strong enough (RSSI missing).\n"));
  EXPECT_FALSE(contains(shown, "Is the signal weak?"));
}

TEST_F(Report, BreaksALongReasonAndListsTheQuestionsThatHaveIt) {
  const std::string reason =
      "The network \"Nope\" was not heard: check how its name is written, "
      "go nearer, and run again";
  for (const DiagnosticsTestID test : kSelectedNetworkBatch) {
    request(test, true);
    fail(reason + ".");
  }
  selectedName_ = makeText("Nope");
  const std::string shown = report();
  EXPECT_EQ(timesIn(shown, "was not heard"), 1U);
  EXPECT_TRUE(contains(shown, "  ? 16 tests could not be answered: The network \"Nope\""));
  EXPECT_TRUE(contains(shown, "? Is the"));
  EXPECT_FALSE(contains(shown, "?,"));
  std::istringstream lines(shown);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(characterCount(line), 100U) << line;
}

TEST_F(Report, KeepsTheUnansweredOfTheSelectedNetworkInItsOwnSection) {
  selectedName_ = makeText("Cafe");
  request(DiagnosticsTestID::PoorSignal, true);
  const std::string shown = report();
  EXPECT_LT(shown.find("Selected network: Cafe"), shown.find("? Is the signal weak?"));
  EXPECT_EQ(timesIn(shown, "? Is the signal weak?"), 1U);
}

TEST_F(Report, ShowsEveryAnsweredTestOfAFullRun) {
  const auto fill = [](const auto& batch, Dictionary::Entries& section) {
    for (const DiagnosticsTestID id : batch) {
      section.emplace(std::string(catalogueTest(id).resultKey), yes());
    }
  };
  fill(kDeviceConfigurationBatch, device_);
  fill(kCurrentNetworkBatch, current_);
  fill(kSelectedNetworkBatch, selected_);
  const std::string shown = report();
  const std::size_t findings = timesIn(shown, "\n  ✗ ") + timesIn(shown, "\n  ! ") +
                               timesIn(shown, "\n  · ") + timesIn(shown, "\n  ✓ ");
  EXPECT_EQ(findings, 56U);
}

TEST_F(Report, ShowsNoControlCharacterOfANetworkName) {
  joinTo("a\x1B[2Jb\r\n\xC2\x9B-\xFF");
  selectedName_ = makeText("\xE2\x80\xAE\x07");
  current_ = {{"isUsingAmbiguousNetworkName", yes()}, {"networkName", text("x\x1B]0;y\x07z")}};
  selected_ = {{"isUsingOpenSecurity", no()},
               {"security", makeDictionary({{"\x1B[31m", text("\x1B[0m")}})}};
  request(DiagnosticsTestID::PingLAN);
  fail("\x1B[8m\nhidden");
  const std::string shown = report();
  std::istringstream lines(shown);
  for (std::string line; std::getline(lines, line);) EXPECT_EQ(line, runtime::safeText(line));
  EXPECT_TRUE(contains(shown, "\nCurrent network: a\\u{1B}[2Jb\\u{D}\\u{A}"));
}

TEST_F(Report, ColoursOnlyWhenAskedAndNeverWithoutASign) {
  current_ = {{"pingedLAN", no()}};
  EXPECT_FALSE(contains(report(), "\x1B"));
  const std::string colored = report(true);
  EXPECT_TRUE(contains(colored, "\x1B[31m✗\x1B[0m The router does not answer."));
  std::string bare;
  for (std::size_t i = 0; i < colored.size(); ++i) {
    if (colored[i] == '\x1B') {
      i = colored.find('m', i);
    } else {
      bare += colored[i];
    }
  }
  EXPECT_EQ(bare, report());
}

TEST_F(Report, CutsOffAVeryLongText) {
  current_ = {{"isHostedByBrellinBaseStation", yes()},
              {"brellinModelName", text(std::string(1'000'000, 'm'))}};
  EXPECT_LT(report().size(), 1'000U);
}

TEST_F(Report, QuotesATextThatCouldBeTakenForMoreValues) {
  current_ = {{"hasPoorSignal", yes()}, {"RSSI", text("-20 dBm, noise -95")}};
  EXPECT_TRUE(contains(report(), "(RSSI \"-20 dBm, noise -95\")."));
}

TEST_F(Report, EndsEveryLineWhateverKindsOfValuesItIsGiven) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::vector<ObjectRef> kinds{
      yes(),
      integer(-1),
      Number::withUnsigned(~std::uint64_t{0}),
      decimal(-infinity),
      decimal(1e300),
      text(""),
      nullPlaceholder(),
      list({}),
      list({nullPlaceholder(), list({text("a")}), makeDictionary({})}),
      makeDictionary({}),
      makeDictionary({{"a", list({integer(1)})}, {"b", makeDictionary({{"c", yes()}})}})};
  for (const ObjectRef& kind : kinds) {
    for (const CatalogueTest& test : kCatalogue) {
      auto& section = test.subject() == TestSubject::device ? device_ : current_;
      section[std::string(test.resultKey)] = yes();
      for (const InformationCopy& copy : test.information()) {
        if (!copy.outputKey.empty()) section[std::string(copy.outputKey)] = kind;
      }
    }
    const std::string shown = report();
    EXPECT_TRUE(shown.ends_with('\n'));
    EXPECT_EQ(timesIn(shown, "RSSI"), 1U);
  }
}

TEST_F(Report, KeepsItsOwnLinesWithinAHundredColumns) {
  for (const CatalogueTest& test : kCatalogue) {
    auto& section = test.subject() == TestSubject::device ? device_ : current_;
    section[std::string(test.resultKey)] = yes();
    for (const InformationCopy& copy : test.information()) {
      if (!copy.outputKey.empty()) section[std::string(copy.outputKey)] = integer(-1234);
    }
  }
  std::istringstream lines(report());
  for (std::string line; std::getline(lines, line);) EXPECT_LE(characterCount(line), 100U) << line;
}

}  // namespace
}  // namespace wifi_profile::report
