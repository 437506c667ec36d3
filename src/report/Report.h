// The findings of a run, ready for display: sentences, marked by urgency.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wifi_profile::report {

// In order of urgency, the most urgent first.
enum class ReportMark { problem, look, plain, good, unknown };
inline constexpr std::size_t kReportMarks = 5;

struct ReportFinding {
  ReportMark mark = ReportMark::plain;
  std::string sentence;
  // The measured values, or the reasons why there are none. For several tests without an answer:
  // their questions.
  std::vector<std::string> values;
  std::string advice;       // empty: no advice
  std::string explanation;  // explains the test, one line per paragraph; may be empty
};

// Returns the separator after `value` on a line of values.
constexpr std::string_view separatorAfter(std::string_view value) {
  return value.ends_with('?') ? " " : ", ";
}

struct ReportSection {
  std::string title;
  std::string note;  // why no test ran in this section; empty: tests ran
  // In the order of the marks: tests without an answer are last.
  std::vector<ReportFinding> findings;

  // The number of tests of each mark. Each test counts once.
  std::array<std::size_t, kReportMarks> counts{};
};

// Every text is valid UTF-8 without characters that act on a terminal, except the line feeds
// between an explanation's paragraphs.
struct Report {
  std::string summary;  // "2 problems, 1 thing worth a look, 31 fine, 4 facts, 1 not known"
  std::optional<ReportFinding> earlyEnd;
  std::vector<ReportSection> sections;
};

}  // namespace wifi_profile::report
