#include "host/Report.h"

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
#include "host/ValueText.h"
#include "host/Wrap.h"
#include "platform/Number.h"
#include "runtime/JsonWriter.h"
#include "tests/Batches.h"
#include "tests/Catalogue.h"
#include "tests/Findings.h"

namespace wifi_profile {
namespace {

constexpr std::size_t kWidth = 98;  // columns that a line keeps to where it can

// How a line begins, and its colour (a terminal's SGR parameters; empty: none).
struct Sign {
  std::string_view sign;
  std::string_view color;
};
constexpr Sign kUnknownSign{"?", "36"};
constexpr std::string_view kHeadingColor = "1";
constexpr std::string_view kAsideColor = "2";

// The more urgent come first.
constexpr std::array kMarks{Mark::problem, Mark::look, Mark::plain, Mark::good};
constexpr Sign signOf(Mark mark) {
  switch (mark) {
    case Mark::problem:
      return {"✗", "31"};
    case Mark::look:
      return {"!", "33"};
    case Mark::good:
      return {"✓", "32"};
    case Mark::plain:
      break;
  }
  return {"·", ""};
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

class Writer {
 public:
  Writer(const Outcome& outcome, const Journal& journal, ReportStyle style)
      : outcome_(outcome), journal_(journal), style_(style) {}

  std::string report();

 private:
  void writeSection(Section section, std::string_view title);
  void writeFindings(Section section, Mark mark, std::set<std::string_view>& shownKeys);
  void writeUnknown(Section section);
  void writeLine(Sign sign, std::string_view sentence, const std::vector<std::string>& values);
  void writeAside(std::string_view text);

  ObjectRef valueOf(Section section, std::string_view key) const;
  bool holdsAnything(Section section) const;
  bool wasRun(Section section) const;
  std::string whyNotRun(Section section) const;
  std::string summary() const;
  std::string painted(std::string_view text, std::string_view color) const;

  const Outcome& outcome_;
  const Journal& journal_;
  ReportStyle style_;
  std::string body_;
  std::array<int, kMarks.size()> count_{};  // findings by mark
  int unknown_ = 0;
};

std::string Writer::report() {
  const EarlyEnd* end = earlyEnd(outcome_.statusCode);
  if (end) {
    body_ += '\n';
    writeLine(signOf(Mark::problem), end->sentence, {});
    writeAside(end->advice);
  }
  const TextRef joined = journal_.joinedNetworkName();
  const TextRef& selected = outcome_.selectedNetworkName;
  const auto titled = [](const std::string& title, const TextRef& name) {
    return name ? title + ": " + shownText(name->string()) : title;
  };
  writeSection(Section::device, "Device");
  writeSection(Section::currentNetwork, titled("Current network", joined));
  writeSection(Section::selectedNetwork, titled("Selected network", selected));
  return painted("Wi-Fi profile: " + summary(), kHeadingColor) + '\n' + body_;
}

// "2 problems, 1 thing worth a look, 31 fine, 1 not found out".
std::string Writer::summary() const {
  if (earlyEnd(outcome_.statusCode)) return "cut short before the tests";
  const auto counted = [this](Mark mark) { return count_[static_cast<std::size_t>(mark)]; };
  const int fine = counted(Mark::good) + counted(Mark::plain);
  const int problems = counted(Mark::problem);
  const int looks = counted(Mark::look);
  if (fine + problems + looks + unknown_ == 0) return "nothing was tested";
  std::string text = problems == 0
                         ? "no problems"
                         : fmt::format("{} problem{}", problems, problems == 1 ? "" : "s");
  if (looks > 0) text += fmt::format(", {} thing{} worth a look", looks, looks == 1 ? "" : "s");
  text += fmt::format(", {} fine", fine);
  if (unknown_ > 0) text += fmt::format(", {} not found out", unknown_);
  return text;
}

void Writer::writeSection(Section section, std::string_view title) {
  const bool endedEarly = earlyEnd(outcome_.statusCode) != nullptr;
  if (endedEarly && !holdsAnything(section)) return;
  body_ += '\n' + painted(title, kHeadingColor) + '\n';
  if (!endedEarly && !wasRun(section)) body_ += "  " + whyNotRun(section) + '\n';
  std::set<std::string_view> shownKeys;
  for (const Mark mark : kMarks) writeFindings(section, mark, shownKeys);
  writeUnknown(section);
}

// The findings of one mark. A value that several tests write stands with the first one shown, which
// is the most urgent.
void Writer::writeFindings(Section section, Mark mark, std::set<std::string_view>& shownKeys) {
  for (const DiagnosticsTestID id : testsOf(section)) {
    const CatalogueTest& test = catalogueTest(id);
    const auto answer = answerOf(valueOf(section, test.resultKey));
    if (!answer) continue;
    const VerdictFinding& finding = *verdictFinding(test.resultKey);
    const Meaning& meaning = *answer ? finding.yes : finding.no;
    if (meaning.mark != mark) continue;
    std::vector<std::string> values;
    for (const InformationCopy& copy : test.information()) {
      const ObjectRef value = valueOf(section, copy.outputKey);
      if (!value || !shownKeys.insert(copy.outputKey).second) continue;
      std::ranges::move(valuePieces(copy.outputKey, value), std::back_inserter(values));
    }
    writeLine(signOf(mark), meaning.sentence, values);
    if (!meaning.advice.empty()) writeAside(meaning.advice);
    ++count_[static_cast<std::size_t>(mark)];
  }
}

// What was asked and not answered, wholly or in part.
void Writer::writeUnknown(Section section) {
  bool first = true;
  for (const DiagnosticsTestID id : testsOf(section)) {
    const CatalogueTest& test = catalogueTest(id);
    const ObjectRef verdict = valueOf(section, test.resultKey);
    std::vector<std::string> reasons;
    for (const std::string& line : journal_.linesOf(section, id)) {
      reasons.push_back(shownText(line));
      if (reasons.back().ends_with('.')) reasons.back().pop_back();
    }
    const bool answered = answerOf(verdict).has_value();
    if (answered ? reasons.empty() : !verdict && !journal_.wasRequested(section, id)) continue;
    if (std::exchange(first, false)) {
      body_ += "  " + painted("Could not be found out:", kHeadingColor) + '\n';
    }
    if (!answered) {
      if (verdict) reasons.push_back("not an answer: " + shownText(jsonText(verdict)));
      if (reasons.empty()) reasons.emplace_back("no reason was given");
      ++unknown_;
    }
    std::string sentence(verdictFinding(test.resultKey)->question);
    if (answered) sentence += " Answered, but not in full.";
    writeLine(kUnknownSign, sentence, reasons);
  }
}

// A sentence with its values before its full stop, where a line holds both; else the values stand
// beneath it.
void Writer::writeLine(Sign sign, std::string_view sentence,
                       const std::vector<std::string>& values) {
  constexpr std::size_t kIndent = 4;
  std::string line(sentence);
  std::string beneath;
  if (!values.empty()) {
    const bool stops = line.ends_with('.');
    if (stops) line.pop_back();
    const std::string inside = fmt::format("{} ({})", line, fmt::join(values, ", "));
    if (kIndent + characterCount(inside) + (stops ? 1 : 0) <= kWidth) {
      line = inside;
    } else {
      beneath = std::string(kIndent, ' ') + joinedWithin(kWidth, kIndent, values, ", ") + '\n';
    }
    if (stops) line += '.';
  }
  body_ += fmt::format("  {} {}\n{}", painted(sign.sign, sign.color), line, beneath);
}

void Writer::writeAside(std::string_view text) {
  body_ += "    " + painted(fmt::format("→ {}", text), kAsideColor) + '\n';
}

ObjectRef Writer::valueOf(Section section, std::string_view key) const {
  if (!outcome_.data) return nullptr;
  const auto findings = as<Dictionary>(outcome_.data->objectForKey(keyOf(section)));
  return findings ? findings->objectForKey(key) : nullptr;
}

bool Writer::holdsAnything(Section section) const {
  const auto tests = testsOf(section);
  return std::any_of(tests.begin(), tests.end(), [&](DiagnosticsTestID id) {
    return valueOf(section, catalogueTest(id).resultKey) || journal_.wasRequested(section, id);
  });
}

bool Writer::wasRun(Section section) const {
  const auto batch = batchOf(section);
  return std::any_of(batch.begin(), batch.end(), [&](DiagnosticsTestID id) {
    return valueOf(section, catalogueTest(id).resultKey) || journal_.wasRequested(section, id);
  });
}

// Why the batch of a section did not run, in a sentence.
std::string Writer::whyNotRun(Section section) const {
  constexpr std::string_view kExcluded =
      "Left alone: a name that ends with _nomap asks not to be surveyed.";
  const TextRef joined = journal_.joinedNetworkName();
  const TextRef& selected = outcome_.selectedNetworkName;
  if (section == Section::currentNetwork) {
    if (isExcludedFromRuns(joined)) return std::string(kExcluded);
    const std::string failure = journal_.statusFailure();
    if (!joined && !failure.empty()) {
      return fmt::format("The device could not be asked which network it is joined to ({}).",
                         shownText(failure));
    }
    if (!joined) return "The device is not joined to a network.";
  } else if (section == Section::selectedNetwork) {
    if (!selected) return "No other network was selected.";
    if (isExcludedFromRuns(selected)) return std::string(kExcluded);
    if (equalNames(selected, joined)) return "It is the current network: see above.";
  }
  return "Its tests were not run.";
}

// `text` must hold nothing that a terminal would act on.
std::string Writer::painted(std::string_view text, std::string_view color) const {
  if (!style_.color || color.empty()) return std::string(text);
  return fmt::format("\x1b[{}m{}\x1b[0m", color, text);
}

}  // namespace

std::string reportText(const Outcome& outcome, const Journal& journal, ReportStyle style) {
  return Writer(outcome, journal, style).report();
}

}  // namespace wifi_profile
