// A run's record and journal, filled by hand, to report on.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
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

  // `selectedName`: the "NetworkName" of the request's configuration, empty for none.
  void request(DiagnosticsTestID test, std::string_view selectedName = {}) {
    const DictionaryRef configuration = selectedName.empty()
                                            ? makeDictionary({})
                                            : makeDictionary({{"NetworkName", text(selectedName)}});
    journal_.event("service.request", {{"test", text(nameOf(test))},
                                       {"id", integer(static_cast<std::int32_t>(test))},
                                       {"configuration", configuration}});
  }

  void log(const std::string& line) {
    journal_.event("log", {{"category", integer(3)},
                           {"level", text("error")},
                           {"text", text("[ERROR] - Wi-Fi Profile: " + line)}});
  }

  // A line of the service about the test that was requested last.
  void logOfService(const std::string& line) {
    journal_.event("log",
                   {{"category", integer(0)}, {"level", text("error")}, {"text", text(line)}});
  }

  Report document() const {
    const DictionaryRef data = makeDictionary({{"device", makeDictionary(device_)},
                                               {"currentNetwork", makeDictionary(current_)},
                                               {"selectedNetwork", makeDictionary(selected_)}});
    const auto plan = planned_ ? std::optional(planRun(joinedName_, selectedName_)) : std::nullopt;
    return reportOf({statusCode_, data, plan, site_}, journal_);
  }

  Journal journal_;
  Dictionary::Entries device_;
  Dictionary::Entries current_;
  Dictionary::Entries selected_;
  TextRef joinedName_;
  TextRef selectedName_;
  bool planned_ = true;  // no: the run ended before its tests
  std::string site_;
  std::int64_t statusCode_ = 0;
};

}  // namespace wifi_profile::report
