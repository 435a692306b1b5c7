#include "reports/charts.h"

#include <map>

#include "base/number.h"
#include "base/words.h"

namespace {

constexpr int kMostDays = 400;  // beyond them days without an amount are left out

}  // namespace

Chart amountsByDay(const TypedRows& rows, size_t dateColumn, size_t amountColumn, const char* title) {
  std::map<Date, double> days;
  for (size_t row = 0; row < rows.count(); ++row) {
    const TypedValue day = rows.value(row, dateColumn), amount = rows.value(row, amountColumn);
    const Date* const date = std::get_if<Date>(&day);
    const double* const number = std::get_if<double>(&amount);
    if (date) days[*date] += number ? *number : 0;
  }
  if (!days.empty() && daysBetween(days.begin()->first, days.rbegin()->first) < kMostDays)
    for (Date d = days.begin()->first; d < days.rbegin()->first; d = addDays(d, 1)) days[d];
  Chart chart{.title = title, .legend = {}, .bars = {}};
  for (const auto& [date, amount] : days)
    chart.bars.push_back({.label = formatDate(date, "dd/MMM"), .segments = {Round(amount, 2)}});
  return chart;
}

Chart largestOutstanding(Database& db) {
  Chart chart{
      .title = "Largest Outstandings By Age In Days",
      .legend = {"0-30",          "31-60", "61-90", english("Over 90")},
      .bars = {},
      .lying = true
  };
  for (auto rows =
           db.query("WITH SUMS AS (SELECT PARTY_CD, SUM(CL_BAL) AS TOTAL,"
                    " SUM(CASE WHEN DATE_DIF <= 30 THEN CL_BAL ELSE 0 END) AS TO30,"
                    " SUM(CASE WHEN DATE_DIF BETWEEN 31 AND 60 THEN CL_BAL ELSE 0 END) AS TO60,"
                    " SUM(CASE WHEN DATE_DIF BETWEEN 61 AND 90 THEN CL_BAL ELSE 0 END) AS TO90,"
                    " SUM(CASE WHEN DATE_DIF > 90 THEN CL_BAL ELSE 0 END) AS OLDER"
                    " FROM CAL GROUP BY PARTY_CD)"
                    " SELECT ACC_NAME, TO30, TO60, TO90, OLDER FROM SUMS"
                    " JOIN ACCOUNT ON ACCOUNT.ACC_CD = SUMS.PARTY_CD ORDER BY TOTAL DESC, ACC_NAME LIMIT 10");
       rows.next();)
    chart.bars.push_back({
        .label = rows.text(0), .segments = {rows.number(1), rows.number(2), rows.number(3), rows.number(4)}
    });
  return chart;
}
