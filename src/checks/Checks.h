// The checks: one pure function a test, which makes its answer from facts.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "checks/Facts.h"
#include "checks/Settings.h"
#include "platform/DiagnosticsService.h"

namespace wifi_profile::checks {

// What a test can know.
struct Question {
  const Facts& facts;
  const Settings& settings;
  // "NetworkName" of the request's configuration; nil: the joined network.
  TextRef networkName;
};

// A result, or why there cannot be one.
using Answer = std::variant<DiagnosticsTestResult, Unknown>;

// Several facts.
class FactSet {
 public:
  constexpr FactSet(std::initializer_list<Fact> facts) {
    for (const Fact fact : facts) bits_ |= bit(fact);
  }
  constexpr bool holds(Fact fact) const { return (bits_ & bit(fact)) != 0; }
  constexpr FactSet with(FactSet other) const {
    other.bits_ |= bits_;
    return other;
  }
  // Those that are in both.
  constexpr FactSet both(FactSet other) const {
    other.bits_ &= bits_;
    return other;
  }
  // Whether they have one in common.
  constexpr bool meets(FactSet other) const { return (bits_ & other.bits_) != 0; }
  constexpr bool operator==(const FactSet&) const = default;

 private:
  static constexpr std::uint32_t bit(Fact fact) { return 1U << static_cast<unsigned>(fact); }
  std::uint32_t bits_ = 0;
};

// A row of the table. The texts are for docs/CHECKS.md, which is made from them.
struct Check {
  DiagnosticsTestID id;
  Answer (*answer)(const Question& question);
  // What it reads. A fact that only helps is in it, too.
  FactSet needs;
  std::string_view measures;
  std::string_view from;       // attribute, property or protocol
  std::string_view threshold;  // with the unit
  std::string_view why;        // standard or source
  std::string_view unknownWhen;
};

// One row a test, in order of the identifiers.
std::span<const Check> allChecks();

// The row of a test.
const Check& checkOf(DiagnosticsTestID id);

// Why the test's result is bad, as sentences for the log, where the facts that it is made from
// say so. A result has no place for them. Empty: they do not.
std::string problemOf(const Question& question, DiagnosticsTestID id);

}  // namespace wifi_profile::checks
