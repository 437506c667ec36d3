// Points in time and their ISO 8601 texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wifi_profile {

// A point in time, in seconds after 2001-01-01 00:00:00 UTC (negative before), leap seconds not
// counted.
struct Date {
  double secondsSinceReferenceDate = 0;

  bool operator==(const Date&) const = default;
};

// "YYYY-MM-DDThh:mm:ssZ" in UTC; a fraction of a second is dropped (towards the past). Nothing for
// a date that is not a number or lies outside the years 0001 to 9999.
std::optional<std::string> iso8601FromDate(Date date);

// Reads "YYYY-MM-DD", optionally followed by "T" and "hh:mm", "hh:mm:ss" or "hh:mm:ss.fraction" and
// then "Z", "+hh:mm", "-hh:mm", "+hhmm", "-hhmm" or nothing (UTC). Proleptic Gregorian calendar,
// years 0001 to 9999, no leap second. Nothing for any other text.
std::optional<Date> dateFromIso8601(std::string_view text);

}  // namespace wifi_profile
