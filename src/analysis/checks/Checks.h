// The checks: one pure function per test, which computes its answer from facts.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "analysis/checks/Settings.h"
#include "analysis/facts/Facts.h"
#include "diagnostic/platform/DiagnosticsService.h"

namespace wifi_profile::checks {

// The input of a check.
struct Question {
  const facts::Facts& facts;
  const Settings& settings;
  // "NetworkName" of the request's configuration; nil: the joined network.
  TextRef networkName;
};

// A result, or the reason why there is none.
using Answer = Result<DiagnosticsTestResult>;

// A set of facts.
class FactSet {
 public:
  constexpr FactSet(std::initializer_list<facts::Fact> facts) {
    for (const facts::Fact fact : facts) bits_ |= bit(fact);
  }
  constexpr bool holds(facts::Fact fact) const { return (bits_ & bit(fact)) != 0; }
  constexpr FactSet with(FactSet other) const {
    other.bits_ |= bits_;
    return other;
  }
  constexpr FactSet without(FactSet other) const {
    other.bits_ = bits_ & ~other.bits_;
    return other;
  }
  // The intersection of both sets.
  constexpr FactSet both(FactSet other) const {
    other.bits_ &= bits_;
    return other;
  }
  // True if the intersection is not empty.
  constexpr bool meets(FactSet other) const { return (bits_ & other.bits_) != 0; }
  constexpr bool operator==(const FactSet&) const = default;

 private:
  static constexpr std::uint32_t bit(facts::Fact fact) { return 1U << static_cast<unsigned>(fact); }
  std::uint32_t bits_ = 0;
};

// A row of the table. docs/CHECKS.md is generated from the texts.
struct Check {
  DiagnosticsTestID id;
  Answer (*answer)(const Question& question);
  // The facts that it reads, including those that only improve the answer.
  FactSet needs;
  std::string_view measures;
  std::string_view from;       // attribute, property or protocol
  std::string_view threshold;  // with the unit
  std::string_view why;        // standard or source
  std::string_view unknownWhen;
};

// One row per test, in order of the identifiers.
std::span<const Check> allChecks();

// Returns the row of a test.
const Check& checkOf(DiagnosticsTestID id);

// Returns why the test's result is bad, or what else must be said of it, in sentences for the log,
// because a result has no field for them. Empty if the facts contain no explanation.
std::string problemOf(const Question& question, DiagnosticsTestID id);

}  // namespace wifi_profile::checks
