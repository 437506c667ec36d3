#include "report/ReportDocument.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnostic/controller/StatusCodes.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"
#include "diagnostic/tests/Findings.h"
#include "report/Explanation.h"
#include "report/ValueText.h"
#include "runtime/JsonWriter.h"

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

std::span<const DiagnosticsTestID> batchOf(Section section) {
  switch (section) {
    case Section::device:
      return kDeviceConfigurationBatch;
    case Section::currentNetwork:
      return kCurrentNetworkBatch;
    case Section::selectedNetwork:
      break;
  }
  return kSelectedNetworkBatch;
}

// Returns every test that can write into the section: its batch in order, then the others. The scan
// for the list of networks is not a test of a run, so it counts only if there was no run.
std::vector<DiagnosticsTestID> testsOf(Section section, bool isRun) {
  const auto batch = batchOf(section);
  std::vector<DiagnosticsTestID> tests(batch.begin(), batch.end());
  for (const CatalogueTest& test : kCatalogue) {
    if (isRun && test.id == DiagnosticsTestID::NoScanResults) continue;
    if ((test.subject == TestSubject::device) == (section == Section::device) &&
        !batchHolds(batch, test.id)) {
      tests.push_back(test.id);
    }
  }
  return tests;
}

std::string withoutStop(std::string text) {
  if (text.ends_with('.')) text.pop_back();
  return text;
}

// Returns the text after "... failed with error: ", or the whole line if it has no such text,
// without a full stop.
std::string reasonIn(std::string_view line) {
  constexpr std::string_view kFailed = " failed with error: ";
  const std::size_t at = line.find(kFailed);
  if (at != std::string_view::npos) line.remove_prefix(at + kFailed.size());
  return withoutStop(shownText(line));
}

// Returns the answer of a boolean or an integer (0: no); empty for any other value.
std::optional<bool> answerOf(const ObjectRef& value) {
  const auto number = as<Number>(value);
  if (!number || number->isDouble()) return std::nullopt;
  return number->toDouble() != 0;
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
  if (current && selected) return "both networks were left alone (_nomap)";
  if (current) return "the current network was left alone (_nomap)";
  if (selected) return "the selected network was left alone (_nomap)";
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
    return fmt::format("nothing could be found out, {} without an answer{}",
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

// Reads one section from the record and the journal.
class SectionReader {
 public:
  SectionReader(const Outcome& outcome, const Journal& journal, Section section)
      : outcome_(outcome),
        journal_(journal),
        section_(section),
        tests_(testsOf(section, outcome.plan.has_value())) {}

  ReportSection read() const;
  // Returns the number of tests of the batch that have an answer, or a reason for having none.
  std::size_t testsDone() const;
  // Returns the question of the batch's test that was requested and is not done; empty: there is no
  // such test.
  std::string questionUnderWay() const;

 private:
  void addAnswered(Mark mark, std::set<std::string_view>& shownKeys, ReportSection& read) const;
  std::vector<std::string> valuesOf(const CatalogueTest& test,
                                    std::set<std::string_view>& shownKeys) const;
  void addUnknown(ReportSection& read) const;
  std::vector<std::string> reasonsOf(const CatalogueTest& test) const;

  ObjectRef valueOf(std::string_view key) const;
  bool isDone(DiagnosticsTestID id) const;
  bool anyRun(std::span<const DiagnosticsTestID> tests) const;
  std::string title() const;
  std::string whyNotRun() const;

  const Outcome& outcome_;
  const Journal& journal_;
  Section section_;
  std::vector<DiagnosticsTestID> tests_;
};

ReportSection SectionReader::read() const {
  ReportSection read;
  read.title = title();
  if (!earlyEnd(outcome_.statusCode) && !anyRun(batchOf(section_))) read.note = whyNotRun();
  std::set<std::string_view> shownKeys;
  for (const Mark mark : kMarks) addAnswered(mark, shownKeys, read);
  addUnknown(read);
  return read;
}

// Adds the findings of one mark.
void SectionReader::addAnswered(Mark mark, std::set<std::string_view>& shownKeys,
                                ReportSection& read) const {
  for (const DiagnosticsTestID id : tests_) {
    const CatalogueTest& test = catalogueTest(id);
    const auto answer = answerOf(valueOf(test.resultKey));
    if (!answer) continue;
    const VerdictFinding& verdict = *verdictFinding(test.resultKey);
    const Meaning& meaning = *answer ? verdict.yes : verdict.no;
    if (meaning.mark != mark) continue;
    ReportFinding finding;
    finding.mark = reportMarkOf(mark);
    finding.sentence = withSite(meaning.sentence, outcome_.site);
    finding.values = valuesOf(test, shownKeys);
    finding.advice = meaning.advice;
    finding.explanation = verdictExplanation(test);
    ++read.counts[static_cast<std::size_t>(finding.mark)];
    read.findings.push_back(std::move(finding));
  }
}

// Returns the reasons for the answer, the measured values, and which values are missing. A value
// that several tests write is shown with the first finding added, which is the most urgent.
std::vector<std::string> SectionReader::valuesOf(const CatalogueTest& test,
                                                 std::set<std::string_view>& shownKeys) const {
  std::vector<std::string> values;
  const TestLines lines = journal_.linesOf(section_, test.id);
  for (const std::string& line : lines.ofService) values.push_back(withoutStop(shownText(line)));
  const auto isLogged = [&](std::string_view line) {
    return std::ranges::find(lines.ofDiagnostic, line) != lines.ofDiagnostic.end();
  };
  if (isLogged("Info not found.")) values.emplace_back("no details were given");
  for (const InformationCopy& copy : test.information()) {
    const ValueFinding* const known = valueFinding(copy.outputKey);
    if (!known) continue;
    const ObjectRef value = valueOf(copy.outputKey);
    const bool isMissing = !value && known->absence == Absence::gap && !copy.logName.empty() &&
                           isLogged(std::string(copy.logName) + " not found.");
    if ((!value && !isMissing) || !shownKeys.insert(copy.outputKey).second) continue;
    if (isMissing) {
      values.push_back(std::string(known->name) + " not given");
    } else {
      std::ranges::move(valuePieces(copy.outputKey, value), std::back_inserter(values));
    }
  }
  return values;
}

// Adds the tests that were requested and not answered. Tests with the same reasons form one
// finding.
void SectionReader::addUnknown(ReportSection& read) const {
  struct Group {
    std::vector<std::string> reasons;
    std::vector<std::string> questions;
    std::string explanation;  // of the first test
  };
  std::vector<Group> groups;
  for (const DiagnosticsTestID id : tests_) {
    const CatalogueTest& test = catalogueTest(id);
    const ObjectRef verdict = valueOf(test.resultKey);
    if (answerOf(verdict) || (!verdict && !journal_.wasRequested(section_, id))) continue;
    // The run ended during this test: the early end reports it.
    if (!isDone(id) && earlyEnd(outcome_.statusCode)) continue;
    std::vector<std::string> reasons = reasonsOf(test);
    auto group = std::ranges::find(groups, reasons, &Group::reasons);
    if (group == groups.end()) {
      group = groups.insert(group, {std::move(reasons), {}, verdictExplanation(test)});
    }
    group->questions.push_back(withSite(verdictFinding(test.resultKey)->question, outcome_.site));
  }
  for (Group& group : groups) {
    const std::size_t count = group.questions.size();
    read.counts[static_cast<std::size_t>(ReportMark::unknown)] += count;
    ReportFinding finding;
    finding.mark = ReportMark::unknown;
    if (count == 1) {
      finding.sentence = std::move(group.questions.front());
      finding.values = std::move(group.reasons);
      finding.explanation = std::move(group.explanation);
    } else {
      finding.sentence =
          fmt::format("{} tests could not be answered: {}.", count, fmt::join(group.reasons, ", "));
      finding.values = std::move(group.questions);
    }
    read.findings.push_back(std::move(finding));
  }
}

std::vector<std::string> SectionReader::reasonsOf(const CatalogueTest& test) const {
  std::vector<std::string> reasons;
  const TestLines lines = journal_.linesOf(section_, test.id);
  for (const std::string& line : lines.ofDiagnostic) reasons.push_back(reasonIn(line));
  for (const std::string& line : lines.ofService) reasons.push_back(withoutStop(shownText(line)));
  if (const ObjectRef verdict = valueOf(test.resultKey)) {
    reasons.push_back("not an answer: " + shownText(runtime::jsonText(verdict)));
  }
  if (reasons.empty()) reasons.emplace_back("no reason was given");
  return reasons;
}

std::size_t SectionReader::testsDone() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(batchOf(section_), [this](auto id) { return isDone(id); }));
}

std::string SectionReader::questionUnderWay() const {
  for (const DiagnosticsTestID id : batchOf(section_)) {
    if (!journal_.wasRequested(section_, id) || isDone(id)) continue;
    return withSite(verdictFinding(catalogueTest(id).resultKey)->question, outcome_.site);
  }
  return {};
}

ObjectRef SectionReader::valueOf(std::string_view key) const {
  if (!outcome_.data) return nullptr;
  const auto findings = as<Dictionary>(outcome_.data->objectForKey(keyOf(section_)));
  return findings ? findings->objectForKey(key) : nullptr;
}

bool SectionReader::isDone(DiagnosticsTestID id) const {
  return valueOf(catalogueTest(id).resultKey) || !journal_.linesOf(section_, id).empty();
}

// Returns true if at least one of the tests was requested or answered.
bool SectionReader::anyRun(std::span<const DiagnosticsTestID> tests) const {
  return std::any_of(tests.begin(), tests.end(), [this](DiagnosticsTestID id) {
    return valueOf(catalogueTest(id).resultKey) || journal_.wasRequested(section_, id);
  });
}

std::string SectionReader::title() const {
  const auto titled = [](std::string_view title, const TextRef& name) {
    if (!name) return std::string(title);
    const std::string shown = shownText(name->string());
    return fmt::format("{}: {}", title, shown.empty() ? "\"\"" : shown);
  };
  const RunPlan plan = outcome_.plan.value_or(RunPlan());
  switch (section_) {
    case Section::device:
      return "Device";
    case Section::currentNetwork:
      // Without a run, the section holds only the list's scan.
      if (!outcome_.plan) return "Networks in range";
      return titled("Current network", plan.currentName);
    case Section::selectedNetwork:
      break;
  }
  return titled("Selected network", plan.selectedName);
}

// Returns why the section's batch did not run, as a sentence.
std::string SectionReader::whyNotRun() const {
  constexpr std::string_view kExcluded =
      "Left alone: a name that ends with _nomap asks not to be surveyed.";
  if (section_ == Section::device || !outcome_.plan) return "Its tests were not run.";
  const TextRef& joined = outcome_.plan->currentName;
  const TextRef& selected = outcome_.plan->selectedName;
  if (section_ == Section::currentNetwork) {
    if (isExcludedFromRuns(joined)) return std::string(kExcluded);
    const std::string failure = journal_.statusFailure();
    if (!joined && !failure.empty()) {
      return fmt::format("The device could not be asked which network it is joined to ({}).",
                         reasonIn(failure));
    }
    if (!joined) return "The device is not joined to a network.";
  } else {
    if (!selected) return "No other network was selected.";
    if (isExcludedFromRuns(selected)) return std::string(kExcluded);
    if (equalNames(selected, joined)) return "It is the current network: see above.";
  }
  return "Its tests were not run.";
}

// Adds the early end and the summary to the report of a run that was cut short.
void tellEarlyEnd(const EarlyEnd& end, const Outcome& outcome, const Journal& journal,
                  Report& report) {
  ReportFinding& told = report.earlyEnd.emplace();
  told.mark = ReportMark::problem;
  told.advice = end.advice;
  if (!outcome.plan) {
    told.sentence = end.sentence;
    report.summary = "cut short before the tests";
    return;
  }
  std::size_t done = 0;
  for (const Section section : sectionsOf(*outcome.plan)) {
    const SectionReader reader(outcome, journal, section);
    done += reader.testsDone();
    if (const std::string question = reader.questionUnderWay(); !question.empty()) {
      told.values.push_back("under way and not answered: " + question);
    }
  }
  told.sentence =
      fmt::format("{}: {} of {} tests were done.", end.duringTests, done, outcome.plan->totalTests);
  report.summary = fmt::format("cut short after {} of {} tests", done, outcome.plan->totalTests);
  const std::string counts = countsText(report.sections);
  if (!counts.empty()) report.summary += ": " + counts;
}

}  // namespace

Report reportOf(const Outcome& outcome, const Journal& journal) {
  Report report;
  const EarlyEnd* end = earlyEnd(outcome.statusCode);
  for (const Section section :
       {Section::device, Section::currentNetwork, Section::selectedNetwork}) {
    ReportSection read = SectionReader(outcome, journal, section).read();
    if (!end || !read.findings.empty()) report.sections.push_back(std::move(read));
  }
  if (end) {
    tellEarlyEnd(*end, outcome, journal, report);
  } else {
    report.summary = summaryOf(report.sections, outcome.plan);
  }
  return report;
}

}  // namespace wifi_profile::report
