#include "diagnostic/platform/Date.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace wifi_profile {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kReferenceDay = std::chrono::year(2001) / 1 / 1;
constexpr std::int64_t kSecondsPerDay = 86400;

std::int64_t secondsAt(sys_days day) { return (day - kReferenceDay).count() * kSecondsPerDay; }

// Reads a text from the front. `ok` becomes false at the first mismatch and stays false.
struct Cursor {
  std::string_view rest;
  bool ok = true;

  bool take(char expected) {
    if (rest.empty() || rest.front() != expected) return false;
    rest.remove_prefix(1);
    return true;
  }
  void require(char expected) { ok = take(expected) && ok; }
  int digits(std::size_t count, int low, int high) {
    int value = 0;
    for (std::size_t i = 0; i < count; ++i) {
      if (i >= rest.size() || rest[i] < '0' || rest[i] > '9') {
        ok = false;
        return low;
      }
      value = value * 10 + (rest[i] - '0');
    }
    rest.remove_prefix(count);
    if (value < low || value > high) ok = false;
    return value;
  }
  double fraction() {
    double value = 0;
    double weight = 1;
    if (rest.empty()) ok = false;
    for (bool first = true; first || (!rest.empty() && rest.front() >= '0' && rest.front() <= '9');
         first = false) {
      weight /= 10;
      value += weight * digits(1, 0, 9);
      if (!ok) break;
    }
    return value;
  }
};

}  // namespace

std::optional<std::string> iso8601FromDate(Date date) {
  const double whole = std::floor(date.secondsSinceReferenceDate);
  const auto first = static_cast<double>(secondsAt(std::chrono::year(1) / 1 / 1));
  const auto end = static_cast<double>(secondsAt(std::chrono::year(10000) / 1 / 1));
  if (!(whole >= first && whole < end)) return std::nullopt;  // false for NaN, too
  const auto seconds = static_cast<std::int64_t>(whole);
  const std::int64_t dayNumber =
      (seconds - (seconds < 0 ? kSecondsPerDay - 1 : 0)) / kSecondsPerDay;
  const auto second = static_cast<int>(seconds - dayNumber * kSecondsPerDay);
  const year_month_day day(kReferenceDay + days(dayNumber));
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                static_cast<unsigned>(day.day()), second / 3600, second / 60 % 60, second % 60);
  return std::string(text.data());
}

std::optional<Date> dateFromIso8601(std::string_view text) {
  Cursor cursor{text};
  const int year = cursor.digits(4, 1, 9999);
  cursor.require('-');
  const int month = cursor.digits(2, 1, 12);
  cursor.require('-');
  const int day = cursor.digits(2, 1, 31);
  const auto date = std::chrono::year(year) / month / day;
  if (!cursor.ok || !date.ok()) return std::nullopt;
  double seconds = static_cast<double>(secondsAt(date));
  if (cursor.take('T')) {
    seconds += cursor.digits(2, 0, 23) * 3600;
    cursor.require(':');
    seconds += cursor.digits(2, 0, 59) * 60;
    if (cursor.take(':')) {
      seconds += cursor.digits(2, 0, 59);
      if (cursor.take('.')) seconds += cursor.fraction();
    }
    const bool east = cursor.take('+');
    if (east || cursor.take('-')) {
      int offset = cursor.digits(2, 0, 23) * 3600;
      cursor.take(':');
      offset += cursor.digits(2, 0, 59) * 60;
      seconds += east ? -offset : offset;
    } else {
      cursor.take('Z');
    }
  }
  if (!cursor.ok || !cursor.rest.empty()) return std::nullopt;
  return Date{seconds};
}

}  // namespace wifi_profile
