// What each key of the record means to a person.
#pragma once

#include <span>
#include <string_view>

namespace wifi_profile {

// How a finding is to be taken.
enum class Mark {
  good,     // as it should be
  plain,    // neither good nor bad: a fact
  look,     // worth a look
  problem,  // to be mended
};

// What one answer of a verdict means: how it is marked, said in a sentence, and, where it is a
// problem or worth a look, what to do about it.
struct Meaning {
  Mark mark;
  std::string_view sentence;
  std::string_view advice;  // empty: nothing to do
};

// A verdict's key, and what yes and no mean under it.
struct VerdictFinding {
  std::string_view key;       // a test's result key
  std::string_view question;  // in a person's words
  Meaning yes;
  Meaning no;
};

// Whether a value that is not there is worth a word.
enum class Absence { gap, normal };

// The key of a value that a test copies into the record.
struct ValueFinding {
  std::string_view key;
  std::string_view name;         // in a person's words
  std::string_view unit;         // such as "dBm"; empty: none, or the service's own
  std::string_view explanation;  // what the value is and which values are usual
  Absence absence = Absence::gap;
};

// Every result key of the catalogue, in the catalogue's order.
std::span<const VerdictFinding> verdictFindings();

// Every output key of the catalogue, each once.
std::span<const ValueFinding> valueFindings();

// nullptr: no such key.
const VerdictFinding* verdictFinding(std::string_view key);
const ValueFinding* valueFinding(std::string_view key);

}  // namespace wifi_profile
