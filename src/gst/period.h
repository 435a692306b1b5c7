#pragma once

#include <string>

#include "base/date.h"

// What a return covers. A quarter goes by its last month; the first two months of a quarter may be
// given beforehand as an invoice furnishing facility (IFF), with bills and notes to registered buyers alone.
struct ReturnPeriod {
  enum class Filing { Month, Quarter, Iff };

  int year = 0, month = 0;
  Filing filing = Filing::Month;

  Date first() const;
  Date last() const;
  std::string text() const;  // "102026"
};

// Of "MMYYYY"; a month that is none has the month 0. "IFF..." and "Q..." before it say the filing.
ReturnPeriod returnPeriod(std::string_view text);
// 1 April of the year in which the day lies.
Date yearStart(Date day);
