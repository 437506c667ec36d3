// The report as a value: what a screen is given to show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"
#include "report/ReportFixture.h"
#include "runtime/SafeText.h"

namespace wifi_profile::report {
namespace {

class ReportDocument : public ReportFixture {
 protected:
  ReportSection currentNetwork() const { return document().sections.at(1); }

  ReportFinding onlyFinding() const {
    const ReportSection section = currentNetwork();
    EXPECT_EQ(section.findings.size(), 1U);
    return section.findings.empty() ? ReportFinding{} : section.findings.front();
  }
};

using Texts = std::vector<std::string>;

std::size_t countOf(const ReportSection& section, ReportMark mark) {
  return section.counts[static_cast<std::size_t>(mark)];
}

// Every text of a document, an explanation's paragraphs apart.
Texts textsOf(const Report& report) {
  Texts texts{report.summary};
  for (const ReportSection& section : report.sections) {
    texts.insert(texts.end(), {section.title, section.note});
    for (const ReportFinding& finding : section.findings) {
      texts.insert(texts.end(), {finding.sentence, finding.advice});
      texts.insert(texts.end(), finding.values.begin(), finding.values.end());
      std::istringstream paragraphs(finding.explanation);
      for (std::string line; std::getline(paragraphs, line);) texts.push_back(line);
    }
  }
  return texts;
}

TEST_F(ReportDocument, HasTheThreeSectionsInOrder) {
  joinTo("Home");
  selectedName_ = makeText("Cafe");
  const auto sections = document().sections;
  ASSERT_EQ(sections.size(), 3U);
  EXPECT_EQ(sections[0].title, "Device");
  EXPECT_EQ(sections[1].title, "Current network: Home");
  EXPECT_EQ(sections[2].title, "Selected network: Cafe");
}

TEST_F(ReportDocument, GivesAFindingItsMarkSentenceValuesAndAdvice) {
  current_ = {{"hasPoorSignal", yes()}, {"RSSI", integer(-78)}, {"noise", decimal(-92.5)}};
  const ReportFinding finding = onlyFinding();
  EXPECT_EQ(finding.mark, ReportMark::problem);
  EXPECT_EQ(finding.sentence, "The signal is weak.");
  EXPECT_EQ(finding.values, (Texts{"RSSI -78 dBm", "noise -92.5 dBm"}));
  EXPECT_TRUE(finding.advice.starts_with("Move closer"));
}

TEST_F(ReportDocument, ExplainsWhatWasTestedAndWhatEachAnswerMeans) {
  current_ = {{"hasPoorSignal", no()}};
  EXPECT_EQ(onlyFinding().explanation,
            "Is the signal weak?\n"
            "Yes: The signal is weak. (a problem)\n"
            "No: The signal is strong enough. (good)\n"
            "RSSI, in dBm: Strength of the received signal, a negative number: closer to 0 is "
            "stronger.\n"
            "noise, in dBm: Strength of the background noise, a negative number: further from 0 is "
            "quieter. What counts is how far the signal is above it.\n"
            "Test 32, Poor Signal. In the record: hasPoorSignal, RSSI, noise.");
}

TEST_F(ReportDocument, ExplainsEveryFindingInParagraphsWithoutAnEmptyOne) {
  planned_ = false;  // with the list's scan
  for (const CatalogueTest& test : kCatalogue) {
    (test.subject() == TestSubject::device ? device_ : current_)[std::string(test.resultKey)] =
        yes();
  }
  std::size_t findings = 0;
  for (const ReportSection& section : document().sections) {
    for (const ReportFinding& finding : section.findings) {
      ++findings;
      EXPECT_TRUE(finding.explanation.find(finding.sentence) != std::string::npos);
      EXPECT_EQ(finding.explanation.find("\n\n"), std::string::npos);
      EXPECT_FALSE(finding.explanation.starts_with('\n'));
      EXPECT_TRUE(finding.explanation.ends_with('.'));
    }
  }
  EXPECT_EQ(findings, kCatalogue.size());
}

TEST_F(ReportDocument, OrdersFindingsByMarkWithTheUnknownLast) {
  request(DiagnosticsTestID::ResolveDNS);
  current_ = {{"pingedLAN", yes()},
              {"isPasspointNetwork", no()},
              {"isCaptive", yes()},
              {"hasPoorSignal", yes()}};
  std::vector<ReportMark> marks;
  for (const ReportFinding& finding : currentNetwork().findings) marks.push_back(finding.mark);
  EXPECT_EQ(marks, (std::vector{ReportMark::problem, ReportMark::look, ReportMark::plain,
                                ReportMark::good, ReportMark::unknown}));
}

TEST_F(ReportDocument, CountsEachSectionByMarkAndSumsTheCountsUp) {
  joinTo("Home");
  device_ = {{"isUsingCustomDNS", yes()}};
  current_ = {{"pingedLAN", yes()}, {"pingedWAN", no()}, {"isPasspointNetwork", no()}};
  request(DiagnosticsTestID::ResolveDNS);
  const Report report = document();
  EXPECT_EQ(countOf(report.sections[0], ReportMark::look), 1U);
  EXPECT_EQ(countOf(report.sections[0], ReportMark::problem), 0U);
  EXPECT_EQ(countOf(report.sections[1], ReportMark::problem), 1U);
  EXPECT_EQ(countOf(report.sections[1], ReportMark::plain), 1U);
  EXPECT_EQ(countOf(report.sections[1], ReportMark::good), 1U);
  EXPECT_EQ(countOf(report.sections[1], ReportMark::unknown), 1U);
  EXPECT_EQ(report.summary, "1 problem, 1 thing worth a look, 1 fine, 1 fact, 1 not known");
}

TEST_F(ReportDocument, GivesAnUnknownItsQuestionAndTheReasons) {
  request(DiagnosticsTestID::ResolveDNS);
  fail("timed out");
  const ReportFinding finding = onlyFinding();
  EXPECT_EQ(finding.mark, ReportMark::unknown);
  EXPECT_EQ(finding.sentence, "Can site names be looked up (DNS)?");
  EXPECT_EQ(finding.values, Texts{"timed out"});
  EXPECT_EQ(finding.advice, "");
  EXPECT_TRUE(finding.explanation.starts_with("Can site names be looked up (DNS)?\nYes: "));
}

TEST_F(ReportDocument, ShowsATestThatIsNotAnsweredInFullOnceWithWhatIsMissing) {
  request(DiagnosticsTestID::PoorSignal);
  answer().values = {{"RSSI", nullptr}};
  current_ = {{"hasPoorSignal", no()}};
  const ReportFinding finding = onlyFinding();
  EXPECT_EQ(finding.mark, ReportMark::good);
  EXPECT_EQ(finding.values, Texts{"RSSI missing"});
  EXPECT_EQ(countOf(currentNetwork(), ReportMark::unknown), 0U);
}

TEST_F(ReportDocument, SaysNothingOfWhatIsOftenNotThere) {
  request(DiagnosticsTestID::PoorSignal);
  answer().values = {{"noise", nullptr}};
  current_ = {{"hasPoorSignal", no()}, {"RSSI", integer(-50)}};
  EXPECT_EQ(onlyFinding().values, Texts{"RSSI -50 dBm"});
}

TEST_F(ReportDocument, SaysThatNoDetailsWereGiven) {
  request(DiagnosticsTestID::PoorSignal);
  answer().hasDetails = false;
  current_ = {{"hasPoorSignal", no()}};
  EXPECT_EQ(onlyFinding().values, Texts{"details missing"});
}

TEST_F(ReportDocument, PutsWhyAnAnswerIsAsItIsBesideIt) {
  request(DiagnosticsTestID::ResolveDNS);
  answer().remark = "DNS lookup of example.com failed: no name server.";
  current_ = {{"resolvedDNS", no()}};
  const ReportFinding finding = onlyFinding();
  EXPECT_EQ(finding.mark, ReportMark::problem);
  EXPECT_EQ(finding.values, Texts{"DNS lookup of example.com failed: no name server"});
}

TEST_F(ReportDocument, PutsTestsWithTheSameReasonTogetherAndCountsEach) {
  selectedName_ = makeText("Nope");
  for (const auto test : {DiagnosticsTestID::PoorSignal, DiagnosticsTestID::Passpoint,
                          DiagnosticsTestID::NoSecurity}) {
    request(test, true);
    fail(test == DiagnosticsTestID::NoSecurity ? "timed out" : "\"Nope\" was not heard.");
  }
  const ReportSection section = document().sections.at(2);
  ASSERT_EQ(section.findings.size(), 2U);
  EXPECT_EQ(section.findings[0].sentence, "Is the network open, without protection?");
  EXPECT_EQ(section.findings[0].values, Texts{"timed out"});
  EXPECT_EQ(section.findings[1].mark, ReportMark::unknown);
  EXPECT_EQ(section.findings[1].sentence, "2 tests could not be answered: \"Nope\" was not heard.");
  EXPECT_EQ(section.findings[1].values,
            (Texts{"Is the network a Passpoint network?", "Is the signal weak?"}));
  EXPECT_EQ(countOf(section, ReportMark::unknown), 3U);
}

TEST_F(ReportDocument, KeepsTheListsScanOutOfTheRunsTests) {
  joinTo("Home");
  device_ = {{"isUsingCustomDNS", no()}};
  request(DiagnosticsTestID::NoScanResults);
  fail("busy");
  EXPECT_TRUE(currentNetwork().findings.empty());
  EXPECT_EQ(document().summary, "no problems found: 1 fine");
  current_ = {{"foundScanResults", integer(1)}};  // an earlier scan's
  EXPECT_TRUE(currentNetwork().findings.empty());
}

TEST_F(ReportDocument, TellsThatTheListsScanFailedWhereNothingElseWasAsked) {
  planned_ = false;
  statusCode_ = -5;
  request(DiagnosticsTestID::NoScanResults);
  fail("busy");
  const Report report = document();
  ASSERT_EQ(report.sections.size(), 1U);
  EXPECT_EQ(report.sections[0].findings.at(0).values, Texts{"busy"});
}

TEST_F(ReportDocument, NamesTheSiteByItsAddress) {
  current_ = {{"reachedOrvane", no()}, {"retrievedOrvane", yes()}};
  const auto sentences = [this] {
    Texts all;
    for (const ReportFinding& finding : currentNetwork().findings) all.push_back(finding.sentence);
    return all;
  };
  EXPECT_EQ(sentences(), (Texts{"The server of the Orvane service cannot be reached.",
                                "A page of the Orvane service can be fetched."}));
  site_ = "https://intranet.example/";
  EXPECT_EQ(sentences(), (Texts{"The server of https://intranet.example/ cannot be reached.",
                                "A page of https://intranet.example/ can be fetched."}));
}

TEST_F(ReportDocument, DoesNotSayThatThereAreNoProblemsWhereNothingWasAnswered) {
  for (const DiagnosticsTestID test : kDeviceConfigurationBatch) request(test);
  current_ = {{"foundScanResults", integer(1)}};  // the list's
  EXPECT_EQ(document().summary,
            "no test could be answered, 11 tests without an answer; no network was tested");
}

TEST_F(ReportDocument, SaysWhatWasLeftAloneBesideWhatWasTested) {
  device_ = {{"isUsingCustomDNS", no()}};
  joinTo("Home_nomap");
  EXPECT_EQ(document().summary,
            "no problems found in what was tested: 1 fine; "
            "the current network was not tested (_nomap)");
  selectedName_ = makeText("Cafe_NoMap");
  EXPECT_TRUE(document().summary.ends_with("; both networks were not tested (_nomap)"));
  joinTo("Home");
  EXPECT_TRUE(document().summary.ends_with("; the selected network was not tested (_nomap)"));
  selectedName_ = nullptr;
  EXPECT_EQ(document().summary, "no problems found: 1 fine");
}

TEST_F(ReportDocument, NotesWhyASectionWasNotTestedAndOnlyThen) {
  device_ = {{"isUsingCustomDNS", no()}};
  const auto sections = document().sections;
  EXPECT_EQ(sections[0].note, "");
  EXPECT_EQ(sections[1].note, "The device is not joined to a network.");
  EXPECT_EQ(sections[2].note, "No other network was selected.");
}

TEST_F(ReportDocument, SaysWhyARunEndedEarlyAndShowsOnlySectionsThatHoldSomething) {
  EXPECT_FALSE(document().earlyEnd);
  planned_ = false;
  statusCode_ = -5;
  current_ = {{"foundScanResults", integer(1)}};
  const Report report = document();
  ASSERT_TRUE(report.earlyEnd);
  EXPECT_EQ(report.earlyEnd->mark, ReportMark::problem);
  EXPECT_EQ(report.earlyEnd->sentence, "Wi-Fi is off, so no network could be chosen.");
  EXPECT_FALSE(report.earlyEnd->advice.empty());
  EXPECT_EQ(report.summary, "ended early, before the tests");
  ASSERT_EQ(report.sections.size(), 1U);
  EXPECT_EQ(report.sections[0].title, "Networks in range");
  EXPECT_EQ(report.sections[0].note, "");
}

TEST_F(ReportDocument, SaysHowFarARunCameThatEndedAmongItsTests) {
  joinTo("Home");
  statusCode_ = -5;
  for (const DiagnosticsTestID test : kDeviceConfigurationBatch) {
    request(test);
    device_[std::string(catalogueTest(test).resultKey)] = no();
  }
  request(DiagnosticsTestID::DetectDoubleNAT);
  fail("timed out");
  request(DiagnosticsTestID::LongBeaconInterval);
  collector_.runEnded();
  fail("cancelled");
  request(DiagnosticsTestID::LongDTIMInterval);
  fail("no answer");
  const Report report = document();
  ASSERT_TRUE(report.earlyEnd);
  EXPECT_EQ(report.earlyEnd->sentence,
            "Wi-Fi was switched off while the tests ran: 12 of 40 tests were done.");
  EXPECT_EQ(report.earlyEnd->values,
            Texts{"under way and not answered: Does the network announce itself too rarely?"});
  EXPECT_EQ(report.summary, "ended early, after 12 of 40 tests: 11 fine, 1 not known");
  ASSERT_EQ(report.sections.size(), 2U);
  EXPECT_EQ(report.sections[1].title, "Current network: Home");
  ASSERT_EQ(report.sections[1].findings.size(), 1U);
  EXPECT_EQ(report.sections[1].findings[0].values, Texts{"timed out"});
}

TEST_F(ReportDocument, IsThereWithoutATest) {
  const Report report = reportOf({});
  EXPECT_EQ(report.sections.size(), 3U);
  EXPECT_EQ(report.summary, "nothing was tested");
}

TEST_F(ReportDocument, HoldsNothingThatATerminalWouldActOn) {
  const std::string hostile = "a\x1B[2J\r\n\x07\xC2\x9B\xE2\x80\xAE\xFF";
  joinTo(hostile);
  selectedName_ = makeText(hostile);
  for (const CatalogueTest& test : kCatalogue) {
    auto& section = test.subject() == TestSubject::device ? device_ : current_;
    section[std::string(test.resultKey)] = yes();
    for (const InformationCopy& copy : test.information()) {
      if (!copy.outputKey.empty()) section[std::string(copy.outputKey)] = text(hostile);
    }
  }
  site_ = hostile;
  request(DiagnosticsTestID::PingLAN, true);
  fail(hostile);
  const Texts texts = textsOf(document());
  for (const std::string& shown : texts) EXPECT_EQ(shown, runtime::safeText(shown));
  EXPECT_THAT(texts, ::testing::Contains("Current network: a\\u{1B}[2J\\u{D}\\u{A}\\u{7}"
                                         "\\u{9B}\\u{202E}\\xFF"));
}

}  // namespace
}  // namespace wifi_profile::report
