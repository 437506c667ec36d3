#include "report/ReportText.h"

#include <algorithm>
#include <fmt/format.h>
#include <string_view>
#include <utility>

#include "report/Wrap.h"

namespace wifi_profile::report {
namespace {

constexpr std::size_t kFindingIndent = 4;  // indent of a finding's text, in columns

// The sign that begins a line, and its colour (SGR parameters; empty: none).
struct Sign {
  std::string_view sign;
  std::string_view color;
};
constexpr std::string_view kHeadingColor = "1";
constexpr std::string_view kAsideColor = "2";

constexpr Sign signOf(ReportMark mark) {
  switch (mark) {
    case ReportMark::problem:
      return {"✗", "31"};
    case ReportMark::look:
      return {"!", "33"};
    case ReportMark::good:
      return {"✓", "32"};
    case ReportMark::unknown:
      return {"?", "36"};
    case ReportMark::plain:
      break;
  }
  return {"·", ""};
}

// `text` must not contain control characters.
std::string painted(std::string_view text, std::string_view color, ReportStyle style) {
  if (!style.color || color.empty()) return std::string(text);
  return fmt::format("\x1b[{}m{}\x1b[0m", color, text);
}

// Returns the sentence with its values before the full stop if both fit on one line, otherwise with
// the values below it.
std::string sentenceLines(const ReportFinding& finding) {
  std::string sentence = wrapped(kTextWidth, kFindingIndent, finding.sentence) + '\n';
  if (finding.values.empty()) return sentence;
  std::string_view line = finding.sentence;
  const bool stops = line.ends_with('.');
  if (stops) line.remove_suffix(1);
  const std::string_view separator = separatorAfter(finding.values.front());
  const std::string values = fmt::format("{}", fmt::join(finding.values, separator));
  const std::string inside = fmt::format("{} ({}){}", line, values, stops ? "." : "");
  if (kFindingIndent + characterCount(inside) <= kTextWidth) return inside + '\n';
  // Reasons are sentences and may break anywhere. A measured value is not broken unless it is
  // longer than a line.
  const bool isLong = std::ranges::any_of(finding.values, [](const std::string& value) {
    return kFindingIndent + characterCount(value) > kTextWidth;
  });
  return fmt::format("{}{:{}}{}\n", sentence, "", kFindingIndent,
                     isLong || finding.mark == ReportMark::unknown
                         ? wrapped(kTextWidth, kFindingIndent, values)
                         : joinedWithin(kTextWidth, kFindingIndent, finding.values, separator));
}

std::string findingText(const ReportFinding& finding, ReportStyle style) {
  const Sign sign = signOf(finding.mark);
  std::string text =
      fmt::format("  {} {}", painted(sign.sign, sign.color, style), sentenceLines(finding));
  if (!finding.advice.empty()) {
    text += "    " + painted("→ " + finding.advice, kAsideColor, style) + '\n';
  }
  return text;
}

std::string sectionText(const ReportSection& section, ReportStyle style) {
  std::string text = painted(section.title, kHeadingColor, style) + '\n';
  if (!section.note.empty()) text += "  " + section.note + '\n';
  bool unknownsBegan = false;
  for (const ReportFinding& finding : section.findings) {
    if (finding.mark == ReportMark::unknown && !std::exchange(unknownsBegan, true)) {
      text += "  " + painted("Unknown:", kHeadingColor, style) + '\n';
    }
    text += findingText(finding, style);
  }
  return text;
}

}  // namespace

std::string reportText(const Report& report, ReportStyle style) {
  std::string text = painted("Wi-Fi profile: " + report.summary, kHeadingColor, style) + '\n';
  if (report.earlyEnd) text += '\n' + findingText(*report.earlyEnd, style);
  for (const ReportSection& section : report.sections) text += '\n' + sectionText(section, style);
  return text;
}

}  // namespace wifi_profile::report
