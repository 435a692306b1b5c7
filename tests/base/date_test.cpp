#include "base/date.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace std::chrono_literals;

TEST(DateTest, ReadsTheFormsThatPeopleType) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"15/06/2026",    "2026-06-15"},
      {"5/6/26",        "2026-06-05"},
      {"15/Jun/2026",   "2026-06-15"},
      {"2023-04-01",    "2023-04-01"},
      {"1/apr/2023",    "2023-04-01"},
      {"29/02/2024",    "2024-02-29"},
      {"01/01/29",      "2029-01-01"},
      {"01/01/30",      "1930-01-01"},
      {" 31/Mar/2034 ", "2034-03-31"},
      {"1 April 2024",  "2024-04-01"}
  };
  for (const auto& [text, iso] : cases) {
    const auto date = parseDate(text);
    ASSERT_TRUE(date) << text;
    EXPECT_EQ(isoDate(*date), iso) << text;
  }
}

TEST(DateTest, RefusesWhatIsNoDate) {
  for (const char* text : {"", "__/__/____", "31/02/2024", "29/02/2023", "00/01/2024", "12/13/2024", "15/06",
                           "15/06/202", "15/06/20266", "15/06/99999999999999999999", "abc", "1/2/3/4",
                           "15//2024", "15/J/2024", "15/06/0026", "2024/15/06", "10:30"})
    EXPECT_FALSE(parseDate(text)) << text;
}

TEST(DateTest, Formats) {
  const Date date = 2026y / 4 / 5;
  EXPECT_EQ(formatDate(date, "dd/MMM/yyyy"), "05/Apr/2026");
  EXPECT_EQ(formatDate(date, "DD/MM/YY"), "05/04/26");
  EXPECT_EQ(formatDate(date, "d/M/yyyy"), "5/4/2026");
  EXPECT_EQ(formatTime({date, 9, 5, 7}, "HH:MM"), "09:05");
  EXPECT_EQ(formatTime({date, 9, 5, 7}, "hh:mm:ss"), "09:05:07");
  EXPECT_EQ(MakeStamp({date, 14, 3}), "260405_1403");
}

TEST(DateTest, Steps) {
  EXPECT_EQ(addMonths(2024y / 1 / 31, 1), Date(2024y / 2 / 29));
  EXPECT_EQ(addMonths(2023y / 3 / 31, -1), Date(2023y / 2 / 28));
  EXPECT_EQ(addMonths(2023y / 11 / 30, 3), Date(2024y / 2 / 29));
  EXPECT_EQ(addDays(2023y / 12 / 31, 1), Date(2024y / 1 / 1));
  EXPECT_EQ(daysBetween(2024y / 2 / 28, 2024y / 3 / 1), 2);
}

TEST(DateTest, Clock) {
  EXPECT_EQ(parseClock("09:05"), (Clock{9, 5}));
  EXPECT_EQ(parseClock("23:59:59"), (Clock{23, 59}));
  for (const char* text : {"24:00", "9:60", "9", "", "a:b"}) EXPECT_FALSE(parseClock(text)) << text;
}
