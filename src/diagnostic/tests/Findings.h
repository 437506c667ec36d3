// The meaning of every key of the record, for the user.
#pragma once

#include <span>
#include <string_view>

namespace wifi_profile {

// How a finding is marked.
enum class Mark {
  good,     // as it should be
  plain,    // neutral: a fact
  look,     // worth a look
  problem,  // to be fixed
};

// The meaning of one answer of a verdict: its mark, a sentence, and advice if the answer is a
// problem or worth a look.
struct Meaning {
  Mark mark;
  std::string_view sentence;
  std::string_view advice;  // empty: no action is needed
};

// The key of a verdict, and the meanings of yes and no.
struct VerdictFinding {
  std::string_view key;       // the result key of a test
  std::string_view question;  // in plain words
  Meaning yes;
  Meaning no;
};

// Whether a missing value is a gap to be mentioned.
enum class Absence { gap, normal };

// The key of a value that a test copies into the record.
struct ValueFinding {
  std::string_view key;
  std::string_view name;         // in plain words
  std::string_view unit;         // such as "dBm"; empty: no unit, or that of the service
  std::string_view explanation;  // what the value is and which values are usual
  Absence absence = Absence::gap;
};

// Returns the rows of every result key of the catalogue, in the order of the catalogue.
std::span<const VerdictFinding> verdictFindings();

// Returns the rows of every output key of the catalogue, each once.
std::span<const ValueFinding> valueFindings();

// Null if there is no such key.
const VerdictFinding* verdictFinding(std::string_view key);
const ValueFinding* valueFinding(std::string_view key);

}  // namespace wifi_profile
