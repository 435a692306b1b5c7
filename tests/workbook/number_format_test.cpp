#include "platform/workbook/number_format.h"

#include <gtest/gtest.h>

namespace {

using workbook::NumberFormat;
using workbook::Value;

constexpr const char* kLakh = "[>=10000000]##\\,##\\,##\\,##0.00;[>=100000]##\\,##\\,##0.00;##,##0.00";

TEST(NumberFormat, Table) {
  // clang-format off
  const std::tuple<const char*, Value, const char*> cases[] = {
    {"General",          1234.5,             "1234.5"},
    {"General",          0.1 + 0.2,          "0.3"},
    {"General",          1.0 / 3,            "0.333333333"},
    {"General",          12345678901.0,      "12345678901"},
    {"General",          123456789012.0,     "1.23457E+11"},
    {"General",          123456789.123,      "123456789.1"},
    {"General",          0.00001234,         "1.234E-05"},
    {"General",          true,               "TRUE"},
    {"General",          "text",             "text"},
    {"General\" kg\"",   2.5,                "2.5 kg"},
    {"0",                2.5,                "3"},
    {"0",                -0.4,               "-0"},
    {"0.00",             2.675,              "2.68"},
    {"000.0",            5,                  "005.0"},
    {"#.##",             0.5,                ".5"},
    {"#.##",             0,                  "."},
    {"#,##0.00",         1234567.891,        "1,234,567.89"},
    {"#,##0,",           1234567,            "1,235"},
    {"00,000",           12,                 "00,012"},
    {"?0.0?",            5.5,                " 5.5 "},
    {kLakh,              12345678.5,         "1,23,45,678.50"},
    {kLakh,              1234567.0,          "12,34,567.00"},
    {kLakh,              99999,              "99,999.00"},
    {kLakh,              -1234.5,            "-1,234.50"},
    {"\u20B9 #,##0.00",  15,                 "\u20B9 15.00"},
    {"[$\u20B9-4009] 0", 7,                  "\u20B9 7"},
    {"\"Rs\" 0",         -5,                 "-Rs 5"},
    {"0.00;[Red](0.00)", -5,                 "(5.00)"},
    {"0.00;-0.00;",      0,                  ""},
    {"0;-0;\"nil\";@\"!\"", 0,               "nil"},
    {"0;-0;\"nil\";@\"!\"", "a",             "a!"},
    {";;;",              "a",                ""},
    {"[<1]0.00%;0.0",    0.125,              "12.50%"},
    {"[>5]0;[<-5]0",     1,                  "########"},
    {"0.00E+00",         12345,              "1.23E+04"},
    {"0.0E+0",           9.99,               "1.0E+1"},
    {"##0.0E+0",         12345,              "12.3E+3"},
    {"# ?/?",            2.5,                "2 1/2"},
    {"# ?/?",            1e20,               "100000000000000000000"},
    {"# ?\?/??",         0.3125,             "5/16"},
    {"@",                12.5,               "12.5"},
    {"(#,##0_);(#,##0)", 5,                  "(5 "},
    {"dd/mm/yyyy",       46188,              "15/06/2026"},
    {"dddd, d mmmm yyyy", 46188,             "Monday, 15 June 2026"},
    {"hh:mm:ss",         0.5 + 1.0 / 86400,  "12:00:01"},
    {"h:mm AM/PM",       0.0,                "12:00 AM"},
    {"mm:ss.0",          90.5 / 86400,       "01:30.5"},
    {"[h]:mm",           1.5,                "36:00"},
    {"[mm]:ss",          0.0625,             "90:00"},
    {"dd/mm/yyyy hh:mm", 46188.999999,       "16/06/2026 00:00"},  // carried into the next day
    {"dd/mm/yyyy",       1,                  "01/01/1900"},
    {"dd/mm/yyyy",       -1,                 "########"},
  };
  // clang-format on
  for (const auto& [code, value, shown] : cases)
    EXPECT_EQ(NumberFormat(code).show(value).text, shown) << code;
}

TEST(NumberFormat, ColoursSpareWidthAndNarrowRoom) {
  const auto negative = NumberFormat("0;[Red]-0").show(-5);
  ASSERT_TRUE(negative.colour);
  EXPECT_EQ(*negative.colour, (paint::Colour{255, 0, 0}));
  EXPECT_FALSE(NumberFormat("0;[Red]-0").show(5).colour);
  const auto money = NumberFormat("\"Rs\"* #,##0").show(1500);
  EXPECT_EQ(money.text, "Rs1,500");
  EXPECT_EQ(money.fillAt, 2u);
  EXPECT_EQ(money.fill, " ");
  const NumberFormat general;
  EXPECT_TRUE(general.general());
  EXPECT_EQ(general.show(1234.5678, 6).text, "1234.6");
  EXPECT_EQ(general.show(1234.5678, 4).text, "1235");
  EXPECT_EQ(general.show(0.0625, 4).text, "0.06");
}

// A code may be any text that a file holds: it must end, and stand for itself where it means nothing.
TEST(NumberFormat, BrokenCodesEnd) {
  for (const char* code :
       {"", "\"open", "[", "[>=", "[$", "0.", "\\", "_", "*", "0;", ";;;;;;", "E+", "[h", "#/", "/?"})
    for (const double x : {0.0, -1.5, 1e300, 1e-300}) NumberFormat(code).show(x);
  EXPECT_EQ(NumberFormat("Zi kg 0").show(3).text, "Zi kg 3");
}

}  // namespace
