#include "report/Explanation.h"

#include <algorithm>
#include <fmt/format.h>
#include <numeric>
#include <utility>

#include "analysis/checks/Checks.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"
#include "report/Wrap.h"

namespace wifi_profile::report {
namespace {

constexpr std::size_t kParagraphIndent = 2;

std::string paragraph(std::string_view text) {
  return std::string(kParagraphIndent, ' ') + wrapped(kTextWidth, kParagraphIndent, text) + '\n';
}

std::string_view wordFor(Mark mark) {
  switch (mark) {
    case Mark::good:
      return "good";
    case Mark::look:
      return "worth a look";
    case Mark::problem:
      return "a problem";
    case Mark::plain:
      break;
  }
  return "a fact";
}

std::string answerLines(std::string_view answer, const Meaning& meaning) {
  std::string lines =
      fmt::format("  {:<5}  {} ({})\n", answer, meaning.sentence, wordFor(meaning.mark));
  if (!meaning.advice.empty()) lines += fmt::format("         → {}\n", meaning.advice);
  return lines;
}

std::string sectionsOf(DiagnosticsTestID id) {
  std::vector<std::string_view> sections;
  for (const Batch& batch : kBatches) {
    if (batch.holds(id)) sections.push_back(keyOf(batch.section));
  }
  if (sections.empty())
    return fmt::format("{}, by the scans of the network list", keyOf(Section::currentNetwork));
  return fmt::format("{}", fmt::join(sections, " and "));
}

std::string writerLine(const CatalogueTest& test) {
  return fmt::format("  {:>2}  {} (\"{}\"), into {}\n", static_cast<std::int32_t>(test.id),
                     test.member(), test.label, sectionsOf(test.id));
}

std::string_view conditionOf(Gate gate) {
  switch (gate) {
    case Gate::onlyWhenPassed:
      return "Only when the test passed.";
    case Gate::onlyWhenNotPassed:
      return "Only when the test did not pass.";
    case Gate::none:
      break;
  }
  return {};
}

// A heading with its text beside it.
std::string definition(std::string_view heading, std::string_view text) {
  constexpr std::size_t kTextIndent = 18;
  return fmt::format("  {:<16}{}\n", heading, wrapped(kTextWidth, kTextIndent, text));
}

std::string checkLines(const checks::Check& check) {
  return "\nHow it is found out\n" + definition("Measured", check.measures) +
         definition("From", check.from) + definition("Threshold", check.threshold) +
         definition("Why", check.why) + definition("Not known when", check.unknownWhen);
}

std::string explainVerdict(const CatalogueTest& test) {
  const bool asInteger = test.verdictForm == VerdictForm::inverseInteger;
  std::string text = fmt::format("{}\n", test.resultKey) + paragraph(test.question) + '\n';
  text += answerLines(asInteger ? "1" : "true", test.yes);
  text += answerLines(asInteger ? "0" : "false", test.no);
  text += checkLines(checks::checkOf(test.id));
  text += "\nWritten by test\n" + writerLine(test);
  std::vector<std::string_view> beside;
  for (const InformationCopy& copy : test.information()) {
    if (!copy.outputKey.empty()) beside.push_back(copy.outputKey);
  }
  if (!beside.empty()) {
    text += "\nGoes with\n" + paragraph(fmt::format("{}", fmt::join(beside, ", ")));
    if (test.gate != Gate::none) text += paragraph(conditionOf(test.gate));
  }
  return text;
}

std::string unitOf(const InformationCopy& value) {
  return value.unit.empty() ? "" : fmt::format(", in {}", value.unit);
}

std::string explainValue(const InformationCopy& value) {
  std::string text = fmt::format("{}\n", value.outputKey);
  text += paragraph(fmt::format("{}{}", value.name, unitOf(value))) + '\n';
  text += paragraph(value.explanation);
  std::string writers;
  std::string verdicts;
  std::string_view condition;
  int count = 0;
  for (const CatalogueTest& test : kCatalogue) {
    if (!test.writes(value.outputKey)) continue;
    writers += writerLine(test);
    verdicts += (verdicts.empty() ? "" : ", ") + std::string(test.resultKey);
    condition = conditionOf(test.gate);
    ++count;
  }
  text += fmt::format("\nWritten by test{}\n", count == 1 ? "" : "s") + writers;
  if (count > 1) text += paragraph("If several find a value, the value of the last one is kept.");
  if (!condition.empty()) text += paragraph(condition);
  return text + "\nGoes with\n" + paragraph(verdicts);
}

std::string lowerCased(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

// Returns the Levenshtein distance: the least number of insertions, deletions and substitutions.
std::size_t editDistance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < one.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < other.size(); ++j) {
      const std::size_t change = diagonal + (one[i] == other[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, change});
    }
  }
  return row.back();
}

}  // namespace

std::optional<std::string> explainText(std::string_view key) {
  if (const CatalogueTest* test = testWithResultKey(key)) return explainVerdict(*test);
  if (const InformationCopy* value = valueWithOutputKey(key)) return explainValue(*value);
  return std::nullopt;
}

std::string verdictExplanation(const CatalogueTest& test) {
  std::string text =
      fmt::format("{}\nYes: {} ({})\nNo: {} ({})\n", test.question, test.yes.sentence,
                  wordFor(test.yes.mark), test.no.sentence, wordFor(test.no.mark));
  std::string keys(test.resultKey);
  for (const InformationCopy& value : test.information()) {
    if (value.outputKey.empty()) continue;
    text += fmt::format("{}{}: {}\n", value.name, unitOf(value), value.explanation);
    keys += fmt::format(", {}", value.outputKey);
  }
  return text + fmt::format("Test {}, {}. In the record: {}.", static_cast<std::int32_t>(test.id),
                            test.label, keys);
}

std::string allKeysText() {
  std::string text = "Verdicts\n";
  for (const CatalogueTest& test : kCatalogue) {
    text += fmt::format("  {:<38} {}\n", test.resultKey, test.question);
  }
  text += "\nValues\n";
  for (const InformationCopy* value : outputValues()) {
    text += fmt::format("  {:<38} {}\n", value->outputKey, value->name);
  }
  return text;
}

std::vector<std::string> similarKeys(std::string_view key) {
  constexpr std::size_t kShortestPart = 3;  // a shorter part matches too many keys
  constexpr std::size_t kLongestKey = 64;   // a longer text resembles no key
  constexpr std::size_t kMost = 3;
  if (key.empty() || key.size() > kLongestKey) return {};
  const std::string sought = lowerCased(key);
  const std::size_t furthest = std::max<std::size_t>(1, key.size() / 3);
  std::vector<std::pair<std::size_t, std::string>> found;
  const auto consider = [&](std::string_view known) {
    const std::string candidate = lowerCased(known);
    std::size_t distance = editDistance(sought, candidate);
    const bool isPart =
        sought.size() >= kShortestPart && candidate.find(sought) != std::string::npos;
    if (isPart) distance = std::min<std::size_t>(distance, 1);
    if (distance <= furthest) found.emplace_back(distance, known);
  };
  for (const CatalogueTest& test : kCatalogue) consider(test.resultKey);
  for (const InformationCopy* value : outputValues()) consider(value->outputKey);
  std::ranges::stable_sort(found, {}, &std::pair<std::size_t, std::string>::first);
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < std::min(found.size(), kMost); ++i) keys.push_back(found[i].second);
  return keys;
}

}  // namespace wifi_profile::report
