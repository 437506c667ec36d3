#include "host/ReportDocument.h"

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

#include "controller/RunPlan.h"
#include "controller/StatusCodes.h"
#include "host/ExplainCommand.h"
#include "host/ValueText.h"
#include "platform/Number.h"
#include "runtime/JsonWriter.h"
#include "tests/Batches.h"
#include "tests/Catalogue.h"
#include "tests/Findings.h"

namespace wifi_profile {
namespace {

// The more urgent come first.
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

// Why a run ended before its tests.
struct EarlyEnd {
  std::int64_t statusCode;
  std::string_view sentence;
  std::string_view advice;
};
constexpr std::array kEarlyEnds{
    EarlyEnd{kStatusNoWiFiManager, "Wi-Fi could not be used: no radio, or no access to it.",
             "Check that the device has Wi-Fi and that its Wi-Fi service is running."},
    EarlyEnd{kStatusNoWiFiDevice, "Wi-Fi could not be used: there is no Wi-Fi interface.",
             "Check that the Wi-Fi adapter is plugged in and its driver is loaded."},
    EarlyEnd{kStatusPowerOnDeclined, "Wi-Fi is off and was not switched on.",
             "Switch Wi-Fi on and run the diagnostic again."},
    EarlyEnd{kStatusWiFiSwitchedOff, "Wi-Fi was switched off while a network was being chosen.",
             "Leave Wi-Fi on and run the diagnostic again."},
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

// Every test that can write into the section: its batch in order, then the others.
std::vector<DiagnosticsTestID> testsOf(Section section) {
  const auto batch = batchOf(section);
  std::vector<DiagnosticsTestID> tests(batch.begin(), batch.end());
  for (const CatalogueTest& test : kCatalogue) {
    if ((test.subject == TestSubject::device) == (section == Section::device) &&
        !batchHolds(batch, test.id)) {
      tests.push_back(test.id);
    }
  }
  return tests;
}

// A boolean number, or an integer (0: no). Nothing for any other value.
std::optional<bool> answerOf(const ObjectRef& value) {
  const auto number = as<Number>(value);
  if (!number || number->isDouble()) return std::nullopt;
  return number->toDouble() != 0;
}

// "2 problems, 1 thing worth a look, 31 fine, 1 not found out".
std::string summaryOf(std::span<const ReportSection> sections) {
  const auto counted = [sections](ReportMark mark) {
    std::size_t count = 0;
    for (const auto& section : sections) count += section.counts[static_cast<std::size_t>(mark)];
    return count;
  };
  const std::size_t fine = counted(ReportMark::good) + counted(ReportMark::plain);
  const std::size_t problems = counted(ReportMark::problem);
  const std::size_t looks = counted(ReportMark::look);
  const std::size_t unknown = counted(ReportMark::unknown);
  if (fine + problems + looks + unknown == 0) return "nothing was tested";
  std::string text = problems == 0
                         ? "no problems"
                         : fmt::format("{} problem{}", problems, problems == 1 ? "" : "s");
  if (looks > 0) text += fmt::format(", {} thing{} worth a look", looks, looks == 1 ? "" : "s");
  text += fmt::format(", {} fine", fine);
  if (unknown > 0) text += fmt::format(", {} not found out", unknown);
  return text;
}

// Reads one section out of the record and the journal.
class SectionReader {
 public:
  SectionReader(const Outcome& outcome, const Journal& journal, Section section)
      : outcome_(outcome), journal_(journal), section_(section), tests_(testsOf(section)) {}

  bool holdsAnything() const { return anyRun(tests_); }
  ReportSection read() const;

 private:
  void addAnswered(Mark mark, std::set<std::string_view>& shownKeys, ReportSection& read) const;
  void addUnknown(ReportSection& read) const;

  ObjectRef valueOf(std::string_view key) const;
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

// The findings of one mark. A value that several tests write stands with the first one added, which
// is the most urgent.
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
    finding.sentence = meaning.sentence;
    for (const InformationCopy& copy : test.information()) {
      const ObjectRef value = valueOf(copy.outputKey);
      if (!value || !shownKeys.insert(copy.outputKey).second) continue;
      std::ranges::move(valuePieces(copy.outputKey, value), std::back_inserter(finding.values));
    }
    finding.advice = meaning.advice;
    finding.explanation = verdictExplanation(test);
    ++read.counts[static_cast<std::size_t>(finding.mark)];
    read.findings.push_back(std::move(finding));
  }
}

// What was asked and not answered, wholly or in part.
void SectionReader::addUnknown(ReportSection& read) const {
  for (const DiagnosticsTestID id : tests_) {
    const CatalogueTest& test = catalogueTest(id);
    const ObjectRef verdict = valueOf(test.resultKey);
    ReportFinding finding;
    finding.mark = ReportMark::unknown;
    for (const std::string& line : journal_.linesOf(section_, id)) {
      finding.values.push_back(shownText(line));
      if (finding.values.back().ends_with('.')) finding.values.back().pop_back();
    }
    const bool answered = answerOf(verdict).has_value();
    if (answered && finding.values.empty()) continue;
    if (!verdict && !journal_.wasRequested(section_, id)) continue;
    if (!answered) {
      if (verdict) finding.values.push_back("not an answer: " + shownText(jsonText(verdict)));
      if (finding.values.empty()) finding.values.emplace_back("no reason was given");
      ++read.counts[static_cast<std::size_t>(finding.mark)];
    }
    finding.sentence = verdictFinding(test.resultKey)->question;
    if (answered) finding.sentence += " Answered, but not in full.";
    finding.explanation = verdictExplanation(test);
    read.findings.push_back(std::move(finding));
  }
}

ObjectRef SectionReader::valueOf(std::string_view key) const {
  if (!outcome_.data) return nullptr;
  const auto findings = as<Dictionary>(outcome_.data->objectForKey(keyOf(section_)));
  return findings ? findings->objectForKey(key) : nullptr;
}

// Whether one of the tests was answered, or asked at least.
bool SectionReader::anyRun(std::span<const DiagnosticsTestID> tests) const {
  return std::any_of(tests.begin(), tests.end(), [this](DiagnosticsTestID id) {
    return valueOf(catalogueTest(id).resultKey) || journal_.wasRequested(section_, id);
  });
}

std::string SectionReader::title() const {
  const auto titled = [](std::string_view title, const TextRef& name) {
    return name ? fmt::format("{}: {}", title, shownText(name->string())) : std::string(title);
  };
  switch (section_) {
    case Section::device:
      return "Device";
    case Section::currentNetwork:
      return titled("Current network", journal_.joinedNetworkName());
    case Section::selectedNetwork:
      break;
  }
  return titled("Selected network", outcome_.selectedNetworkName);
}

// Why the section's batch did not run, in a sentence.
std::string SectionReader::whyNotRun() const {
  constexpr std::string_view kExcluded =
      "Left alone: a name that ends with _nomap asks not to be surveyed.";
  const TextRef joined = journal_.joinedNetworkName();
  const TextRef& selected = outcome_.selectedNetworkName;
  if (section_ == Section::currentNetwork) {
    if (isExcludedFromRuns(joined)) return std::string(kExcluded);
    const std::string failure = journal_.statusFailure();
    if (!joined && !failure.empty()) {
      return fmt::format("The device could not be asked which network it is joined to ({}).",
                         shownText(failure));
    }
    if (!joined) return "The device is not joined to a network.";
  } else if (section_ == Section::selectedNetwork) {
    if (!selected) return "No other network was selected.";
    if (isExcludedFromRuns(selected)) return std::string(kExcluded);
    if (equalNames(selected, joined)) return "It is the current network: see above.";
  }
  return "Its tests were not run.";
}

}  // namespace

Report reportOf(const Outcome& outcome, const Journal& journal) {
  Report report;
  const EarlyEnd* end = earlyEnd(outcome.statusCode);
  for (const Section section :
       {Section::device, Section::currentNetwork, Section::selectedNetwork}) {
    const SectionReader reader(outcome, journal, section);
    if (!end || reader.holdsAnything()) report.sections.push_back(reader.read());
  }
  report.summary = end ? "cut short before the tests" : summaryOf(report.sections);
  if (end) {
    report.earlyEnd.emplace();
    report.earlyEnd->mark = ReportMark::problem;
    report.earlyEnd->sentence = end->sentence;
    report.earlyEnd->advice = end->advice;
  }
  return report;
}

}  // namespace wifi_profile
