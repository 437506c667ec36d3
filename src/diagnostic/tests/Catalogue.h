// The catalogue of the 41 tests: what each test writes into the record, and what its answer means
// to a person.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "diagnostic/platform/DiagnosticsTestID.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/InformationHandlers.h"

namespace wifi_profile {

// The key of a network name, both in the parameters of the host and in the findings.
inline constexpr std::string_view kNetworkName = "networkName";

// What a test examines. This also determines which findings it writes: those of the device, or
// those of a network.
enum class TestSubject { device, network };

// Whether the information of a result is read, depending on its `didPass`.
enum class Gate { none, onlyWhenPassed, onlyWhenNotPassed };

// How the verdict is stored under the result key.
enum class VerdictForm {
  boolean,         // the verdict
  inverseInteger,  // 1 for a false verdict, 0 for a true one
};

// An entry of a value that is a dictionary.
struct EntryName {
  std::string_view key;
  std::string_view name;
  std::string_view unit = {};  // of a number; empty: no unit
};

// Whether a missing value is a gap to be mentioned.
enum class Absence { gap, normal };

// One value to copy from the information of a result.
struct InformationCopy {
  std::string_view infoKey = {};
  std::string_view outputKey = {};  // empty: the value is not stored in the findings
  std::string_view logName = {};    // the name in the "not found" line; empty: no line

  // For people. Empty if the value is not stored.
  std::string_view name = {};
  std::string_view unit = {};         // such as "dBm"; empty: no unit, or that of the service
  std::string_view explanation = {};  // what the value is and which values are usual
  Absence absence = Absence::gap;
  std::span<const EntryName> entries = {};  // of a dictionary, in the order of display
};

// How a finding is marked.
enum class Mark {
  good,     // as it should be
  plain,    // neutral: a fact
  look,     // worth a look
  problem,  // to be fixed
};

// The meaning of one answer: its mark, a sentence, and advice if the answer is a problem or worth a
// look. The sentence makes sense on its own, because it may be part of a list, and ends with a full
// stop; a value may be inserted before the full stop.
struct Meaning {
  Mark mark;
  std::string_view sentence;
  std::string_view advice = {};  // one sentence, the action first; empty: no action is needed
};

inline constexpr std::size_t kMostInformation = 5;

// A row of the catalogue.
struct CatalogueTest {
  DiagnosticsTestID id;
  std::string_view label;  // in the failure log
  std::string_view resultKey;
  std::string_view question;
  Meaning yes;
  Meaning no;
  Gate gate = Gate::none;
  std::array<InformationCopy, kMostInformation> copies{};  // filled from the front
  InformationHandler handler = copyUnchanged;
  VerdictForm verdictForm = VerdictForm::boolean;

  constexpr std::string_view member() const { return nameOf(id); }
  constexpr TestSubject subject() const {
    return kBatches.front().holds(id) ? TestSubject::device : TestSubject::network;
  }

  // Returns what is copied, in order. Empty: the information of the test is not read.
  constexpr std::span<const InformationCopy> information() const {
    const auto end = std::find_if(copies.begin(), copies.end(),
                                  [](const auto& copy) { return copy.infoKey.empty(); });
    return {copies.begin(), end};
  }

  constexpr bool writes(std::string_view outputKey) const {
    return std::any_of(copies.begin(), copies.end(), [outputKey](const InformationCopy& copy) {
      return !outputKey.empty() && copy.outputKey == outputKey;
    });
  }
};

// In ascending order of the identifiers.
extern const std::array<CatalogueTest, kDiagnosticsTestNames.size()> kCatalogue;

// Returns the row of a test.
const CatalogueTest& catalogueTest(DiagnosticsTestID id);

// Return the row that writes the result key, or the value under the output key. Null if there is no
// such key.
const CatalogueTest* testWithResultKey(std::string_view key);
const InformationCopy* valueWithOutputKey(std::string_view key);

// Returns the values of every output key, each once.
std::vector<const InformationCopy*> outputValues();

}  // namespace wifi_profile
