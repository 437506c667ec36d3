// The report on a terminal.

#include "app/terminal/TerminalFixture.h"

namespace wifi_profile::terminal {
namespace {

using Name = Key::Name;

report::ReportFinding finding(report::ReportMark mark, std::string sentence) {
  return {
      .mark = mark, .sentence = std::move(sentence), .values = {}, .advice = "", .explanation = ""};
}

report::Report sampleReport() {
  report::ReportFinding weak = finding(report::ReportMark::problem, "The signal is weak.");
  weak.values = {"RSSI -74 dBm", "noise -88 dBm"};
  weak.advice = "Go closer to the access point.";
  weak.explanation = "How strong the signal is.\nMore is better.";
  report::Report report{.summary = "1 problem, 1 fine", .earlyEnd = std::nullopt, .sections = {}};
  report.sections.push_back(
      {.title = "Device",
       .note = "",
       .findings = {weak, finding(report::ReportMark::good, "IPv4 is automatic.")},
       .counts = {1, 0, 0, 1, 0}});
  report.sections.push_back({.title = "Selected network",
                             .note = "No other network was selected.",
                             .findings = {},
                             .counts = {}});
  return report;
}

class ReportOnATerminal : public TerminalFixture {
 protected:
  void showReport(Extent extent, report::Report report = sampleReport()) {
    look(extent);
    terminal->report = std::move(report);
  }
};

TEST_F(ReportOnATerminal, ShowsSectionsCountsAndFindings) {
  showReport({40, 15});
  EXPECT_EQ(terminal->frame().text(),
            " Report\n"
            " 1 problem, 1 fine\n"
            "\n"
            " Device  ✗ 1  ✓ 1\n"
            "› ✗ The signal is weak.\n"
            "  ✓ IPv4 is automatic.\n"
            "\n"
            " Selected network\n"
            "  No other network was selected.\n"
            "\n"
            "  [ Close ]\n"
            "\n\n\n"
            " Enter Explain  q Close  ? Help  ↑↓ Move\n");
}

TEST_F(ReportOnATerminal, OpensAndClosesAFinding) {
  showReport({40, 15});
  press(Name::enter);
  EXPECT_EQ(line(4), "› ✗ The signal is weak.");
  EXPECT_EQ(line(5), "      RSSI -74 dBm");
  EXPECT_EQ(line(6), "      noise -88 dBm");
  EXPECT_EQ(line(7), "      → Go closer to the access point.");
  EXPECT_EQ(line(8), "      How strong the signal is.");
  EXPECT_EQ(line(9), "      More is better.");
  EXPECT_EQ(line(10), "  ✓ IPv4 is automatic.");
  press(Name::enter);
  EXPECT_EQ(line(5), "  ✓ IPv4 is automatic.");
}

TEST_F(ReportOnATerminal, FitsIntoTheSmallestOne) {
  showReport({20, 6});
  EXPECT_EQ(terminal->frame().text(),
            " Report\n"
            " 1 problem, 1 fine\n"
            " Device  ✗ 1  ✓ 1\n"
            "› ✗ The signal is\n"
            "    weak.          ↓\n"
            " Enter Explain\n");
  press(Name::down);
  EXPECT_EQ(terminal->frame().text(),
            " Report\n"
            "  ✗ The signal is  ↑\n"
            "    weak.\n"
            "› ✓ IPv4 is\n"
            "    automatic.     ↓\n"
            " Enter Explain\n");
  press(Name::down);
  EXPECT_EQ(terminal->frame().text(),
            " Report\n"
            " Selected network  ↑\n"
            "  No other network\n"
            "  was selected.\n"
            "› [ Close ]\n"
            " Enter Explain\n");
  press(Name::home);
  EXPECT_EQ(line(1), " 1 problem, 1 fine");
}

TEST_F(ReportOnATerminal, ScrollsThroughAFindingThatIsLongerThanTheScreen) {
  showReport({20, 6});
  press(Name::enter);
  EXPECT_EQ(line(1), "› ✗ The signal is  ↑");
  std::string seen;
  for (int i = 0; i < 12; ++i) {
    seen += line(4) + "\n";
    press(Name::down);
  }
  EXPECT_NE(seen.find("noise -88 dBm"), std::string::npos) << seen;
  EXPECT_NE(seen.find("More is better."), std::string::npos) << seen;
  EXPECT_TRUE(shows("[ Close ]"));
  for (int i = 0; i < 40; ++i) press(Name::up);
  EXPECT_EQ(line(1), " 1 problem, 1 fine");
}

TEST_F(ReportOnATerminal, MovesByPages) {
  showReport({20, 6});
  press(Name::pageDown);
  EXPECT_EQ(line(1).substr(0, 7), "    wea");
  press(Name::pageDown);
  press(Name::pageDown);
  EXPECT_TRUE(shows("[ Close ]"));
  press(Name::pageUp);
  press(Name::pageUp);
  press(Name::pageUp);
  EXPECT_EQ(line(1), " 1 problem, 1 fine");
}

TEST_F(ReportOnATerminal, ShowsFirstWhyTheRunEndedEarly) {
  report::Report report = sampleReport();
  report.earlyEnd = finding(report::ReportMark::problem, "Wi-Fi was switched off.");
  showReport({40, 15}, report);
  EXPECT_EQ(line(2), "› ✗ Wi-Fi was switched off.");
}

TEST_F(ReportOnATerminal, IsClosedByEscapeQAndItsLastLine) {
  for (const Key& key : {Key{Name::escape, ""}, typed("q")}) {
    showReport({40, 15});
    press(key);
    EXPECT_EQ(terminal->effects, std::vector<Effect>{effect::Close{}});
    terminal->effects.clear();
  }
  press(Name::end);
  EXPECT_EQ(cursorLine(), "› [ Close ]");
  press(Name::enter);
  EXPECT_EQ(terminal->effects, std::vector<Effect>{effect::Close{}});
}

TEST_F(ReportOnATerminal, HasOnlyItsLastLineWhereNothingWasFound) {
  showReport({40, 15}, {.summary = "nothing", .earlyEnd = std::nullopt, .sections = {}});
  press(Name::enter);
  EXPECT_EQ(terminal->effects, std::vector<Effect>{effect::Close{}});
}

TEST_F(ReportOnATerminal, ShowsNeitherAlertNorQuestionAnyMore) {
  wifiManager->power = 0;
  showEmptyList();
  type({"q"});
  showReport({80, 24});
  terminal->state.question.reset();
  EXPECT_FALSE(shows("Turn it on"));
}

TEST_F(ReportOnATerminal, UsesPlainSignsWhereThereAreNoOthers) {
  showReport({40, 15});
  terminal->look.marks = kAsciiMarks;
  press(Name::enter);
  EXPECT_EQ(line(3), " Device  x 1  + 1");
  EXPECT_EQ(line(4), "> x The signal is weak.");
  EXPECT_EQ(line(7), "      -> Go closer to the access point.");
}

}  // namespace
}  // namespace wifi_profile::terminal
