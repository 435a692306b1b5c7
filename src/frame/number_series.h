#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "store/database.h"

// The series in which the numbers on paper run (SERIES), where the shop has set one: INV/26-27/0007 has the
// prefix "INV/{yy}/" and 4 digits. It stands for one type of a kind of voucher, or for all that have none of
// their own, and begins anew in each company-year. Kinds without one are numbered as vouchers/numbering says.

struct NumberSeries {
  std::string book, type;      // code of the kind; an empty type is all of them
  std::string prefix, suffix;  // kYearMark in them stands for the year
  int width = 0;               // digits at least
  double first = 1;            // number of a year's first paper
};

inline constexpr const char* kYearMark = "{yy}";
// The year of the tax in which a period begins: 26-27.
std::string taxYear(Date first);

// As they are set.
std::vector<NumberSeries> allSeries(Database& db);
// That of a type, else of all types, with this session's year in place of its mark.
std::optional<NumberSeries> seriesOf(Database& db, const std::string& book, const std::string& type);
NumberSeries inYear(NumberSeries series, Date first);

void storeSeries(Database& db,
                 const NumberSeries& series);  // in place of the one that its kind and type have
void removeSeries(Database& db, const std::string& book, const std::string& type);
// Those of the company's earlier books into new ones, where each begins at 1.
void takeSeries(Database& db, Database& earlier);

// Rule 46: a number on a bill has 16 signs at most, letters, digits, "-" and "/".
inline constexpr int kLongestNumber = 16;
bool isLawfulNumber(const std::string& number);
// Why a series as it is set can be none, in words; empty when it can.
std::string seriesRefusal(const NumberSeries& series, Date first);

// Of a series with its year in place.
std::string numberIn(const NumberSeries& series, double count);
std::optional<double> countIn(const NumberSeries& series,
                              const std::string& number);  // none: not of the series
