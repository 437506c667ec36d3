// Points in time and their ISO 8601 representation.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wifi_profile {

// A point in time, in seconds after 2001-01-01 00:00:00 UTC; negative before that. Leap seconds are
// not counted.
struct Date {
  double secondsSinceReferenceDate = 0;

  bool operator==(const Date&) const = default;
};

// Formats `date` as "YYYY-MM-DDThh:mm:ssZ" in UTC, rounded down to whole seconds. Empty if the date
// is NaN or lies outside the years 0001 to 9999.
std::optional<std::string> iso8601FromDate(Date date);

// Reads "YYYY-MM-DD", optionally followed by "T" and "hh:mm", "hh:mm:ss" or "hh:mm:ss.fraction". A
// time may end with "Z", "+hh:mm", "-hh:mm", "+hhmm" or "-hhmm"; without one it is in UTC. The
// calendar is the proleptic Gregorian one, years 0001 to 9999, without leap seconds. Empty for any
// other text.
std::optional<Date> dateFromIso8601(std::string_view text);

}  // namespace wifi_profile
