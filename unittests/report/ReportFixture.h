// A run's outcomes, filled by hand, to report on.
#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <string_view>

#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/tests/Catalogue.h"
#include "report/ReportDocument.h"

namespace wifi_profile::report {

class ReportFixture : public ::testing::Test {
 protected:
  static ObjectRef yes() { return Number::withBool(true); }
  static ObjectRef no() { return Number::withBool(false); }
  static ObjectRef integer(std::int64_t value) { return Number::withInteger(value); }
  static ObjectRef decimal(double value) { return Number::withDouble(value); }
  static ObjectRef text(std::string_view value) { return makeText(value); }

  void joinTo(std::string_view name) { joinedName_ = makeText(name); }

  // Starts a test; of the selected network if `isSelected`.
  void request(DiagnosticsTestID test, bool isSelected = false) {
    const Section section = catalogueTest(test).subject() == TestSubject::device ? Section::device
                            : isSelected ? Section::selectedNetwork
                                         : Section::currentNetwork;
    latest_ = {section, test};
    collector_.testStarted(section, test);
  }
  // Ends the test that was started last.
  void fail(const std::string& message) {
    collector_.testEnded({.section = latest_.first,
                          .test = latest_.second,
                          .verdict = Error{Reason::failed, message}});
  }
  // What the answer of the test that was started last has besides its verdict.
  TestOutcome& answer() { return answers_[latest_]; }

  Report document() const {
    CollectedOutcomes collected = collector_.collected();
    collect(Section::device, device_, collected);
    collect(Section::currentNetwork, current_, collected);
    collect(Section::selectedNetwork, selected_, collected);
    const auto plan = planned_ ? std::optional(planRun(joinedName_, selectedName_)) : std::nullopt;
    return reportOf({statusCode_, plan, site_, std::move(collected)});
  }

  OutcomeCollector collector_;
  // The sections, as in the record.
  Dictionary::Entries device_;
  Dictionary::Entries current_;
  Dictionary::Entries selected_;
  TextRef joinedName_;
  TextRef selectedName_;
  bool planned_ = true;  // no: the run ended before its tests
  std::string site_;
  std::int64_t statusCode_ = 0;

 private:
  using Key = std::pair<Section, DiagnosticsTestID>;

  void collect(Section section, const Dictionary::Entries& entries,
               CollectedOutcomes& collected) const {
    for (const CatalogueTest& test : kCatalogue) {
      const auto verdict = entries.find(test.resultKey);
      if (verdict == entries.end()) continue;
      const auto answer = answers_.find({section, test.id});
      TestOutcome outcome = answer == answers_.end() ? TestOutcome() : answer->second;
      outcome.verdict = as<Number>(verdict->second)->toDouble() != 0;
      for (const InformationCopy& copy : test.information()) {
        const auto value = entries.find(copy.outputKey);
        if (value != entries.end()) outcome.values.push_back({copy.outputKey, value->second});
      }
      collected.tests[{section, test.id}] = std::move(outcome);
    }
  }

  Key latest_;
  std::map<Key, TestOutcome> answers_;
};

}  // namespace wifi_profile::report
