// What a run found, ready to be shown to a person: sentences, marked by how urgent they are.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wifi_profile {

// The more urgent come first.
enum class ReportMark { problem, look, plain, good, unknown };
inline constexpr std::size_t kReportMarks = 5;

struct ReportFinding {
  ReportMark mark = ReportMark::plain;
  std::string sentence;
  // What was measured, or why nothing was; of several tests without an answer their questions.
  std::vector<std::string> values;
  std::string advice;       // empty: there is nothing to do
  std::string explanation;  // what the test is about: a paragraph a line; or empty
};

// What stands between two values on a line.
constexpr std::string_view separatorAfter(std::string_view value) {
  return value.ends_with('?') ? " " : ", ";
}

struct ReportSection {
  std::string title;
  std::string note;  // why nothing was tested here; empty: it was
  // In the order of the marks: those that could not be found out are last.
  std::vector<ReportFinding> findings;

  // Tests by mark: each counts once.
  std::array<std::size_t, kReportMarks> counts{};
};

// Every text is valid UTF-8 and holds nothing that a terminal would act on, but for the line feeds
// between an explanation's paragraphs.
struct Report {
  std::string summary;  // "2 problems, 1 thing worth a look, 31 fine, 4 facts, 1 not known"
  std::optional<ReportFinding> earlyEnd;
  std::vector<ReportSection> sections;
};

}  // namespace wifi_profile
