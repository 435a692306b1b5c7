#include "frame/number_series.h"

#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "store/dictionary.h"
#include "store/engine.h"

namespace {

constexpr const char* kTable = "SERIES";

NumberSeries read(const Row& row) {
  return {.book = row.text("BOOK_CD"),
          .type = row.text("BL_TYPE"),
          .prefix = row.text("PREFIX"),
          .suffix = row.text("SUFFIX"),
          .width = toInt(row.number("WIDTH")),
          .first = row.number("FIRST_NO")};
}

bool isDigit(char sign) { return sign >= '0' && sign <= '9'; }

bool ofLawfulSigns(const std::string& text) {
  return std::ranges::all_of(text, [](char sign) {
    return isDigit(sign) || (sign >= 'A' && sign <= 'Z') || (sign >= 'a' && sign <= 'z') || sign == '-' ||
           sign == '/';
  });
}

}  // namespace

std::string taxYear(Date first) {
  const int year = static_cast<int>(first.year()) - (first.month() < std::chrono::April ? 1 : 0);
  const auto two = [](int n) { return padLeft(std::to_string(n % 100), 2, '0'); };
  return two(year) + "-" + two(year + 1);
}

std::vector<NumberSeries> allSeries(Database& db) {
  std::vector<NumberSeries> all;
  if (!CheckTable(db, kTable)) return all;
  for (const Row& row : db.all(
           "SELECT BOOK_CD, BL_TYPE, PREFIX, WIDTH, SUFFIX, FIRST_NO FROM SERIES ORDER BY BOOK_CD, BL_TYPE"))
    all.push_back(read(row));
  return all;
}

std::optional<NumberSeries> seriesOf(Database& db, const std::string& book, const std::string& type) {
  if (!CheckTable(db, kTable)) return std::nullopt;
  const auto row = db.first(
      "SELECT BOOK_CD, BL_TYPE, PREFIX, WIDTH, SUFFIX, FIRST_NO FROM SERIES WHERE BOOK_CD = ? AND BL_TYPE IN "
      "(?, '')"
      " ORDER BY BL_TYPE DESC LIMIT 1",
      book, type);
  return row ? std::optional(inYear(read(*row), session().mstartdt)) : std::nullopt;
}

NumberSeries inYear(NumberSeries series, Date first) {
  for (std::string* part : {&series.prefix, &series.suffix})
    *part = replaceAll(*part, kYearMark, taxYear(first));
  return series;
}

void storeSeries(Database& db, const NumberSeries& series) {
  ensureTable(db, kTable);  // books that the walk has not brought up to date lack it
  whole(db, [&] {
    removeSeries(db, series.book, series.type);
    db.exec(
        "INSERT INTO SERIES (BOOK_CD, BL_TYPE, PREFIX, WIDTH, SUFFIX, FIRST_NO) VALUES (?, ?, ?, ?, ?, ?)",
        series.book, series.type, series.prefix, series.width, series.suffix, series.first);
  });
}

void removeSeries(Database& db, const std::string& book, const std::string& type) {
  db.exec("DELETE FROM SERIES WHERE BOOK_CD = ? AND BL_TYPE = ?", book, type);
}

void takeSeries(Database& db, Database& earlier) {
  if (!CheckTable(db, kTable)) return;
  for (NumberSeries series : allSeries(earlier)) {
    series.first = 1;
    storeSeries(db, series);
  }
}

bool isLawfulNumber(const std::string& number) {
  return !number.empty() && length(number) <= kLongestNumber && ofLawfulSigns(number);
}

std::string seriesRefusal(const NumberSeries& series, Date first) {
  const NumberSeries running = inYear(series, first);
  if (!ofLawfulSigns(running.prefix + running.suffix))
    return words(
        "A Number On Paper Has Letters A To Z, Digits, - And / Alone\r\n{mark} Stands For The Year {year}",
        "mark", kYearMark, "year", taxYear(first));
  if (series.width < 1) return english("Type How Many Digits The Number Has, From 1");
  if (series.first < 1 || series.first != std::floor(series.first))
    return english("The First Number Is A Whole Number From 1");
  if (length(numText(series.first)) > series.width)
    return words("{first} Has More Than {width} Digits", "first", numText(series.first), "width",
                 std::to_string(series.width));
  if (const int signs = length(running.prefix) + series.width + length(running.suffix);
      signs > kLongestNumber)
    return words("A Number On Paper Has 16 Signs At Most\r\n{number} Has {signs}", "number",
                 numberIn(running, series.first), "signs", std::to_string(signs));
  return {};
}

std::string numberIn(const NumberSeries& series, double count) {
  return series.prefix + padLeft(numText(count), std::max(series.width, length(numText(count))), '0') +
         series.suffix;
}

std::optional<double> countIn(const NumberSeries& series, const std::string& number) {
  const size_t around = series.prefix.size() + series.suffix.size();
  if (number.size() < around + static_cast<size_t>(series.width)) return std::nullopt;
  const std::string digits = number.substr(series.prefix.size(), number.size() - around);
  if (!std::ranges::all_of(digits, isDigit) ||
      !sameText(number.substr(0, series.prefix.size()), series.prefix) ||
      !sameText(number.substr(number.size() - series.suffix.size()), series.suffix))
    return std::nullopt;
  return Val(digits);
}
