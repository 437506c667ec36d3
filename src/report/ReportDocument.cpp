#include "report/ReportDocument.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnostic/controller/StatusCodes.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"
#include "report/Explanation.h"
#include "report/ValueText.h"

namespace wifi_profile::report {
namespace {

// In order of urgency, the most urgent first.
constexpr std::array kMarks{Mark::problem, Mark::look, Mark::plain, Mark::good};

constexpr ReportMark reportMarkOf(Mark mark) {
  switch (mark) {
    case Mark::problem:
      return ReportMark::problem;
    case Mark::look:
      return ReportMark::look;
    case Mark::good:
      return ReportMark::good;
    case Mark::plain:
      break;
  }
  return ReportMark::plain;
}

// Why a run ended early.
struct EarlyEnd {
  std::int64_t statusCode;
  std::string_view sentence;     // before the tests
  std::string_view duringTests;  // without its full stop
  std::string_view advice;
};
constexpr std::array kEarlyEnds{
    EarlyEnd{kStatusNoWiFiManager, "Wi-Fi could not be used: no radio, or no access to it.",
             "Wi-Fi could not be used any longer",
             "Check that the device has Wi-Fi and that its Wi-Fi service is running."},
    EarlyEnd{kStatusNoWiFiDevice, "Wi-Fi could not be used: there is no Wi-Fi interface.",
             "The Wi-Fi interface went away",
             "Check that the Wi-Fi adapter is plugged in and its driver is loaded."},
    // The radio may be on: another program may have turned it on before the answer.
    EarlyEnd{kStatusPowerOnDeclined, "The question whether to turn Wi-Fi on was answered with No.",
             "The question whether to turn Wi-Fi on was answered with No",
             "Run the diagnostic again, and turn Wi-Fi on when it asks."},
    // Wi-Fi may have been off from the start.
    EarlyEnd{kStatusWiFiSwitchedOff, "Wi-Fi is off, so no network could be chosen.",
             "Wi-Fi was switched off while the tests ran",
             "Turn Wi-Fi on, leave it on, and run the diagnostic again."},
};

const EarlyEnd* earlyEnd(std::int64_t statusCode) {
  const auto found = std::find_if(kEarlyEnds.begin(), kEarlyEnds.end(),
                                  [&](const auto& end) { return end.statusCode == statusCode; });
  return found == kEarlyEnds.end() ? nullptr : &*found;
}

// Returns every test that can write into the section: its batch in order, then the others. The scan
// for the list of networks is not a test of a run, so it counts only if there was no run.
std::vector<DiagnosticsTestID> testsOf(Section section, bool isRun) {
  const auto batch = batchOf(section).tests;
  std::vector<DiagnosticsTestID> tests(batch.begin(), batch.end());
  for (const CatalogueTest& test : kCatalogue) {
    if (isRun && test.id == DiagnosticsTestID::NoScanResults) continue;
    if ((test.subject() == TestSubject::device) == (section == Section::device) &&
        std::ranges::find(batch, test.id) == batch.end()) {
      tests.push_back(test.id);
    }
  }
  return tests;
}

std::string withoutStop(std::string text) {
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string shownReason(const Error& error) {
  if (error.message.empty()) return "reason unknown";
  return withoutStop(shownText(error.message));
}

// Returns the sections of the plan, in the order of the run.
std::vector<Section> sectionsOf(const RunPlan& plan) {
  std::vector<Section> sections{Section::device};
  if (plan.runCurrentNetwork) sections.push_back(Section::currentNetwork);
  if (plan.runSelectedNetwork) sections.push_back(Section::selectedNetwork);
  return sections;
}

std::string plural(std::size_t count, std::string_view one, std::string_view more) {
  return fmt::format("{} {}", count, count == 1 ? one : more);
}

std::size_t countOf(std::span<const ReportSection> sections, ReportMark mark) {
  std::size_t count = 0;
  for (const auto& section : sections) count += section.counts[static_cast<std::size_t>(mark)];
  return count;
}

// Returns the counts as text: "2 problems, 1 thing worth a look, 31 fine, 4 facts, 1 not known".
// Marks without findings are omitted.
std::string countsText(std::span<const ReportSection> sections) {
  std::vector<std::string> parts;
  const auto add = [&](ReportMark mark, std::string_view one, std::string_view more) {
    const std::size_t count = countOf(sections, mark);
    if (count > 0) parts.push_back(plural(count, one, more));
  };
  add(ReportMark::problem, "problem", "problems");
  add(ReportMark::look, "thing worth a look", "things worth a look");
  add(ReportMark::good, "fine", "fine");
  add(ReportMark::plain, "fact", "facts");
  add(ReportMark::unknown, "not known", "not known");
  return fmt::format("{}", fmt::join(parts, ", "));
}

// Returns which networks the run excluded because of their name, or that it tested none; empty:
// neither.
std::string leftOut(const std::optional<RunPlan>& plan) {
  if (!plan) return {};
  const bool current = isExcludedFromRuns(plan->currentName);
  const bool selected =
      isExcludedFromRuns(plan->selectedName) && !equalNames(plan->selectedName, plan->currentName);
  if (current && selected) return "both networks were not tested (_nomap)";
  if (current) return "the current network was not tested (_nomap)";
  if (selected) return "the selected network was not tested (_nomap)";
  return sectionsOf(*plan).size() == 1 ? "no network was tested" : "";
}

// Returns the summary of a run that did not end early.
std::string summaryOf(std::span<const ReportSection> sections, const std::optional<RunPlan>& plan) {
  std::size_t answered = 0;
  for (const ReportMark mark :
       {ReportMark::problem, ReportMark::look, ReportMark::plain, ReportMark::good}) {
    answered += countOf(sections, mark);
  }
  const std::size_t unknown = countOf(sections, ReportMark::unknown);
  if (answered + unknown == 0) return "nothing was tested";
  const std::string left = leftOut(plan);
  const std::string end = left.empty() ? "" : "; " + left;
  if (answered == 0) {
    return fmt::format("no test could be answered, {} without an answer{}",
                       plural(unknown, "test", "tests"), end);
  }
  if (countOf(sections, ReportMark::problem) > 0) return countsText(sections) + end;
  const bool inFull = left.empty() && unknown == 0;
  return fmt::format("no problems found{}: {}{}", inFull ? "" : " in what was tested",
                     countsText(sections), end);
}

// Inserts the address of the page into the sentence, if the address is known.
std::string withSite(std::string_view sentence, const std::string& site) {
  constexpr std::string_view kService = "the Orvane service";
  std::string text(sentence);
  const std::size_t at = text.find(kService);
  if (at != std::string::npos && !site.empty()) text.replace(at, kService.size(), shownText(site));
  return text;
}

// Reports on one section.
class SectionReader {
 public:
  SectionReader(const FinishedRun& run, Section section)
      : run_(run), section_(section), tests_(testsOf(section, run.plan.has_value())) {
    for (const DiagnosticsTestID id : tests_) {
      const TestOutcome* const outcome = outcomeOf(id);
      if (!outcome) continue;
      for (const TestValue& value : outcome->values) {
        if (value.value) values_[value.key] = value.value;
      }
    }
  }

  ReportSection read() const;
  // Returns the number of tests of the batch that have ended.
  std::size_t testsEnded() const;
  // Returns the question of the batch's test that was started and has not ended; empty: there is no
  // such test.
  std::string questionUnderWay() const;

 private:
  void addAnswered(Mark mark, std::set<std::string_view>& shownKeys, ReportSection& read) const;
  std::vector<std::string> valuesOf(const CatalogueTest& test, const TestOutcome& outcome,
                                    std::set<std::string_view>& shownKeys) const;
  void addUnknown(ReportSection& read) const;

  bool wasStarted(DiagnosticsTestID id) const {
    return run_.collected.tests.contains({section_, id});
  }
  // Null: the test has not ended.
  const TestOutcome* outcomeOf(DiagnosticsTestID id) const {
    const auto found = run_.collected.tests.find({section_, id});
    return found != run_.collected.tests.end() && found->second ? &*found->second : nullptr;
  }
  std::string questionOf(DiagnosticsTestID id) const {
    return withSite(catalogueTest(id).question, run_.site);
  }
  std::string title() const;
  std::string whyNotRun() const;

  const FinishedRun& run_;
  Section section_;
  std::vector<DiagnosticsTestID> tests_;
  // By output key. The value of the test that ran last.
  std::map<std::string_view, ObjectRef> values_;
};

ReportSection SectionReader::read() const {
  ReportSection read;
  read.title = title();
  const bool anyRun =
      std::ranges::any_of(batchOf(section_).tests, [this](auto id) { return wasStarted(id); });
  if (!anyRun && !earlyEnd(run_.statusCode)) read.note = whyNotRun();
  std::set<std::string_view> shownKeys;
  for (const Mark mark : kMarks) addAnswered(mark, shownKeys, read);
  addUnknown(read);
  return read;
}

// Adds the findings of one mark.
void SectionReader::addAnswered(Mark mark, std::set<std::string_view>& shownKeys,
                                ReportSection& read) const {
  for (const DiagnosticsTestID id : tests_) {
    const TestOutcome* const outcome = outcomeOf(id);
    if (!outcome || !outcome->verdict) continue;
    const CatalogueTest& test = catalogueTest(id);
    const Meaning& meaning = *outcome->verdict ? test.yes : test.no;
    if (meaning.mark != mark) continue;
    ReportFinding finding;
    finding.mark = reportMarkOf(mark);
    finding.sentence = withSite(meaning.sentence, run_.site);
    finding.values = valuesOf(test, *outcome, shownKeys);
    finding.advice = meaning.advice;
    finding.explanation = verdictExplanation(test);
    ++read.counts[static_cast<std::size_t>(finding.mark)];
    read.findings.push_back(std::move(finding));
  }
}

// Returns the reason for the answer, the measured values, and which values are missing. A value
// that several tests write is shown with the first finding added, which is the most urgent.
std::vector<std::string> SectionReader::valuesOf(const CatalogueTest& test,
                                                 const TestOutcome& outcome,
                                                 std::set<std::string_view>& shownKeys) const {
  std::vector<std::string> values;
  if (!outcome.remark.empty()) values.push_back(withoutStop(shownText(outcome.remark)));
  if (!outcome.hasDetails) values.emplace_back("details missing");
  for (const InformationCopy& copy : test.information()) {
    if (copy.outputKey.empty()) continue;
    const auto value = values_.find(copy.outputKey);
    const bool isMissing = value == values_.end() && copy.absence == Absence::gap &&
                           std::ranges::any_of(outcome.values, [&](const TestValue& one) {
                             return one.key == copy.outputKey && !one.value;
                           });
    if ((value == values_.end() && !isMissing) || !shownKeys.insert(copy.outputKey).second)
      continue;
    if (isMissing) {
      values.push_back(std::string(copy.name) + " missing");
    } else {
      std::ranges::move(valuePieces(copy, value->second), std::back_inserter(values));
    }
  }
  return values;
}

// Adds the tests that were started and have no verdict. Tests with the same reason form one
// finding.
void SectionReader::addUnknown(ReportSection& read) const {
  struct Group {
    Error reason;
    std::vector<std::string> questions;
    std::string explanation;  // of the first test
  };
  std::vector<Group> groups;
  for (const DiagnosticsTestID id : tests_) {
    const TestOutcome* const outcome = outcomeOf(id);
    if (!wasStarted(id) || (outcome && outcome->verdict)) continue;
    // The run ended during this test: the early end reports it.
    if (!outcome && earlyEnd(run_.statusCode)) continue;
    const Error reason = outcome ? outcome->verdict.error() : Error();
    auto group = std::ranges::find(groups, reason, &Group::reason);
    if (group == groups.end()) {
      group = groups.insert(group, {reason, {}, verdictExplanation(catalogueTest(id))});
    }
    group->questions.push_back(questionOf(id));
  }
  for (Group& group : groups) {
    const std::size_t count = group.questions.size();
    read.counts[static_cast<std::size_t>(ReportMark::unknown)] += count;
    ReportFinding finding;
    finding.mark = ReportMark::unknown;
    if (count == 1) {
      finding.sentence = std::move(group.questions.front());
      finding.values = {shownReason(group.reason)};
      finding.explanation = std::move(group.explanation);
    } else {
      finding.sentence =
          fmt::format("{} tests could not be answered: {}.", count, shownReason(group.reason));
      finding.values = std::move(group.questions);
    }
    finding.advice = shownText(group.reason.advice);
    read.findings.push_back(std::move(finding));
  }
}

std::size_t SectionReader::testsEnded() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(batchOf(section_).tests, [this](auto id) { return outcomeOf(id); }));
}

std::string SectionReader::questionUnderWay() const {
  for (const DiagnosticsTestID id : batchOf(section_).tests) {
    if (wasStarted(id) && !outcomeOf(id)) return questionOf(id);
  }
  return {};
}

std::string SectionReader::title() const {
  const auto titled = [](std::string_view title, const TextRef& name) {
    if (!name) return std::string(title);
    const std::string shown = shownText(name->string());
    return fmt::format("{}: {}", title, shown.empty() ? "\"\"" : shown);
  };
  const RunPlan plan = run_.plan.value_or(RunPlan());
  switch (section_) {
    case Section::device:
      return "Device";
    case Section::currentNetwork:
      // Without a run, the section holds only the list's scan.
      if (!run_.plan) return "Networks in range";
      return titled("Current network", plan.currentName);
    case Section::selectedNetwork:
      break;
  }
  return titled("Selected network", plan.selectedName);
}

// Returns why the section's batch did not run, as a sentence.
std::string SectionReader::whyNotRun() const {
  constexpr std::string_view kExcluded =
      "Not tested: its name ends with _nomap, which asks not to be surveyed.";
  if (section_ == Section::device || !run_.plan) return "Its tests were not run.";
  const TextRef& joined = run_.plan->currentName;
  const TextRef& selected = run_.plan->selectedName;
  if (section_ == Section::currentNetwork) {
    if (isExcludedFromRuns(joined)) return std::string(kExcluded);
    if (const auto& error = run_.collected.statusError; !joined && error) {
      return fmt::format("The device could not be asked which network it is joined to ({}).",
                         shownReason(*error));
    }
    if (!joined) return "The device is not joined to a network.";
  } else {
    if (!selected) return "No other network was selected.";
    if (isExcludedFromRuns(selected)) return std::string(kExcluded);
    if (equalNames(selected, joined)) return "It is the current network: see above.";
  }
  return "Its tests were not run.";
}

// Adds the early end and the summary to the report of a run that ended early.
void tellEarlyEnd(const EarlyEnd& end, const FinishedRun& run, Report& report) {
  ReportFinding& told = report.earlyEnd.emplace();
  told.mark = ReportMark::problem;
  told.advice = end.advice;
  if (!run.plan) {
    told.sentence = end.sentence;
    report.summary = "ended early, before the tests";
    return;
  }
  std::size_t ended = 0;
  for (const Section section : sectionsOf(*run.plan)) {
    const SectionReader reader(run, section);
    ended += reader.testsEnded();
    if (const std::string question = reader.questionUnderWay(); !question.empty()) {
      told.values.push_back("under way and not answered: " + question);
    }
  }
  told.sentence =
      fmt::format("{}: {} of {} tests were done.", end.duringTests, ended, run.plan->totalTests);
  report.summary = fmt::format("ended early, after {} of {} tests", ended, run.plan->totalTests);
  const std::string counts = countsText(report.sections);
  if (!counts.empty()) report.summary += ": " + counts;
}

}  // namespace

Report reportOf(const FinishedRun& run) {
  Report report;
  const EarlyEnd* end = earlyEnd(run.statusCode);
  for (const Section section :
       {Section::device, Section::currentNetwork, Section::selectedNetwork}) {
    ReportSection read = SectionReader(run, section).read();
    if (!end || !read.findings.empty()) report.sections.push_back(std::move(read));
  }
  if (end) {
    tellEarlyEnd(*end, run, report);
  } else {
    report.summary = summaryOf(report.sections, run.plan);
  }
  return report;
}

}  // namespace wifi_profile::report
