#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "diagnostic/platform/Date.h"
#include "runtime/Iso8601Formatter.h"

namespace wifi_profile {
namespace {

constexpr double kYear1 = -63113904000;      // 0001-01-01T00:00:00Z
constexpr double kYear10000 = 252423993600;  // 10000-01-01T00:00:00Z

TEST(DateText, BeginsAtTheReferenceDate) {
  EXPECT_EQ(iso8601FromDate({0}), "2001-01-01T00:00:00Z");
  EXPECT_EQ(iso8601FromDate({86399}), "2001-01-01T23:59:59Z");
  EXPECT_EQ(iso8601FromDate({86400}), "2001-01-02T00:00:00Z");
  EXPECT_EQ(iso8601FromDate({-978307200}), "1970-01-01T00:00:00Z");
}

TEST(DateText, DropsFractionsTowardsThePast) {
  EXPECT_EQ(iso8601FromDate({0.999}), "2001-01-01T00:00:00Z");
  EXPECT_EQ(iso8601FromDate({-0.001}), "2000-12-31T23:59:59Z");
  EXPECT_EQ(iso8601FromDate({-1}), "2000-12-31T23:59:59Z");
  EXPECT_EQ(iso8601FromDate({-1.5}), "2000-12-31T23:59:58Z");
}

TEST(DateText, KnowsLeapYears) {
  EXPECT_EQ(iso8601FromDate({(3 * 365 + 31 + 28) * 86400.0}), "2004-02-29T00:00:00Z");
  EXPECT_EQ(dateFromIso8601("2000-02-29").has_value(), true);
  EXPECT_EQ(dateFromIso8601("1900-02-29"), std::nullopt);
  EXPECT_EQ(dateFromIso8601("2001-02-29"), std::nullopt);
}

TEST(DateText, ReachesFromTheYear1ToTheYear9999) {
  EXPECT_EQ(iso8601FromDate({kYear1}), "0001-01-01T00:00:00Z");
  EXPECT_EQ(iso8601FromDate({kYear1 - 0.5}), std::nullopt);
  EXPECT_EQ(iso8601FromDate({kYear10000 - 0.5}), "9999-12-31T23:59:59Z");
  EXPECT_EQ(iso8601FromDate({kYear10000}), std::nullopt);
}

TEST(DateText, IsNoneForWhatIsNoDate) {
  using Limits = std::numeric_limits<double>;
  for (const double seconds : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                               Limits::max(), Limits::lowest()}) {
    EXPECT_EQ(iso8601FromDate({seconds}), std::nullopt) << seconds;
  }
}

TEST(DateText, ReadsBackAsTheSameSecond) {
  for (double seconds = kYear1; seconds < kYear10000; seconds += 987654321) {
    const auto text = iso8601FromDate({seconds});
    ASSERT_TRUE(text) << seconds;
    EXPECT_EQ(dateFromIso8601(*text), Date{seconds}) << *text;
  }
}

TEST(DateReading, TakesTheShorterForms) {
  EXPECT_EQ(dateFromIso8601("2001-01-02"), Date{86400});
  EXPECT_EQ(dateFromIso8601("2001-01-01T01:30"), Date{5400});
  EXPECT_EQ(dateFromIso8601("2001-01-01T01:30Z"), Date{5400});
  EXPECT_EQ(dateFromIso8601("2001-01-01T00:00:01"), Date{1});
}

TEST(DateReading, TakesFractions) {
  EXPECT_EQ(dateFromIso8601("2001-01-01T00:00:00.5Z"), Date{0.5});
  EXPECT_EQ(dateFromIso8601("2001-01-01T00:00:01.250"), Date{1.25});
  const auto precise = dateFromIso8601("2001-01-01T00:00:00.123456789Z");
  ASSERT_TRUE(precise);
  EXPECT_NEAR(precise->secondsSinceReferenceDate, 0.123456789, 1e-12);
}

TEST(DateReading, TakesOffsetsEastAndWest) {
  EXPECT_EQ(dateFromIso8601("2001-01-01T02:00:00+02:00"), Date{0});
  EXPECT_EQ(dateFromIso8601("2001-01-01T00:00:00-05:30"), Date{19800});
  EXPECT_EQ(dateFromIso8601("2001-01-01T02:00:00+0200"), Date{0});
  EXPECT_EQ(dateFromIso8601("2001-01-01T02:00+02:00"), Date{0});
}

TEST(DateReading, RefusesEveryOtherText) {
  const std::vector<std::string> bad{
      "",
      "2001",
      "2001-01",
      "2001-1-1",
      "0000-01-01",
      "2001-00-01",
      "2001-13-01",
      "2001-04-31",
      "2001-01-00",
      "2001-01-32",
      "01-01-2001",
      "2001/01/01",
      " 2001-01-01",
      "2001-01-01 ",
      "2001-01-01Z",
      "2001-01-01 00:00:00Z",
      "2001-01-01t00:00:00Z",
      "2001-01-01T",
      "2001-01-01T00",
      "2001-01-01T24:00:00Z",
      "2001-01-01T23:60:00Z",
      "2001-01-01T23:59:60Z",
      "2001-01-01T00:00:",
      "2001-01-01T00:00:00.",
      "2001-01-01T00:00:00.Z",
      "2001-01-01T00:00.5Z",
      "2001-01-01T00:00:00z",
      "2001-01-01T00:00:00ZZ",
      "2001-01-01T00:00:00+02",
      "2001-01-01T00:00:00+2:00",
      "2001-01-01T00:00:00+24:00",
      "2001-01-01T00:00:00+02:60",
      "2001-01-01T00:00:00+02:00Z",
      "-001-01-01",
      "+2001-01-01",
      "20010-01-01",
      std::string("2001-01-01\0", 11),
  };
  for (const std::string& text : bad) EXPECT_EQ(dateFromIso8601(text), std::nullopt) << text;
}

TEST(Iso8601Formatter, HasNoTextForNoDate) {
  runtime::Iso8601Formatter formatter;
  const HsDateFormatter& style = formatter.formatterWithType(0);
  EXPECT_EQ(style.stringFromDate(std::nullopt), nullptr);
  EXPECT_EQ(style.stringFromDate(Date{std::nan("")}), nullptr);
  const TextRef text = style.stringFromDate(Date{0});
  ASSERT_TRUE(text);
  EXPECT_EQ(text->string(), "2001-01-01T00:00:00Z");
}

}  // namespace
}  // namespace wifi_profile
