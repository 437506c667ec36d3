// Formats the dates of the record.
#pragma once

#include "diagnostic/platform/DiagnosticsSupport.h"

namespace wifi_profile::runtime {

// Has one style, ISO 8601 in UTC to the second, and ignores the requested type.
class Iso8601Formatter final : public HsDateFormatter {
 public:
  const HsDateFormatter& formatterWithType(int /*type*/) override { return *this; }
  TextRef stringFromDate(const std::optional<Date>& date) const override {
    const auto text = date ? iso8601FromDate(*date) : std::nullopt;
    return text ? makeText(*text) : nullptr;
  }
};

}  // namespace wifi_profile::runtime
