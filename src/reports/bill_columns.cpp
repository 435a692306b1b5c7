#include "reports/bill_columns.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/words.h"
#include "frame/supply_kinds.h"
#include "store/dictionary.h"

namespace {

constexpr double kMarks = 150;  // pixels

}  // namespace

Condition askedOfBills(const ReportQuery& q) {
  Condition c;
  c.add("SALE.VOUCH_DT >= ?", q.from)
      .add("SALE.VOUCH_DT <= ?", q.to)
      .addFilled("SALE.PARTY_CD = ?", q[kParty])
      .addFilled("ACCOUNT.AREA = ?", q[kCity])
      .addFilled("ACCOUNT.CITY = ?", q[kState]);
  return c;
}

void addBillFigures(std::vector<ReportColumn>& columns, bool summed) {
  for (const auto& [heading, twips] : {
           std::pair{"Assival", 1200},
           {"Cgst",    1000},
           {"Sgst",    1000},
           {"Igst",    1000},
           {"R.Off",   900 },
           {"N.Amt",   1200}
  })
    columns.push_back({.heading = heading,
                       .twips = static_cast<double>(twips),
                       .type = ColumnType::Money,
                       .summed = summed,
                       .right = !summed});
}

std::vector<Value> BillMarks::before(const std::vector<Value>& others) const {
  std::vector<Value> all = values;
  all.insert(all.end(), others.begin(), others.end());
  return all;
}

void BillMarks::addTo(std::vector<ReportColumn>& columns) const {
  if (!expression.empty()) columns.push_back({.heading = "Marks", .twips = 1300, .pixels = kMarks});
}

BillMarks billMarks(Database& db, const std::string& book) {
  const auto& columns = db.columns("SUPPLY");  // books that an update has yet to reach know no kinds
  const bool kinds = std::ranges::any_of(columns, [](const Column& c) { return sameText(c.name, "KIND"); });
  const std::string marked =
      kinds ? "REVERSE = 1 OR INELIGIBLE = 1 OR KIND > 0" : "REVERSE = 1 OR INELIGIBLE = 1";
  if (!CheckTable(db, "SUPPLY") ||
      !db.first("SELECT 1 FROM SUPPLY WHERE BOOK_CD = ? AND (" + marked + ") LIMIT 1", book))
    return {};
  std::string kind;
  std::vector<Value> names;
  for (int n = 1; kinds && !supplyName(supplyKind(n)).empty(); ++n) {
    kind += " WHEN KIND = ? THEN ?";
    names.insert(names.end(), {n, supplyName(supplyKind(n))});
  }
  names.insert(names.end(), {words("Rev. Charge, No ITC"), words("Rev. Charge"), words("No ITC")});
  return {.expression = ", (SELECT CASE" + kind +
                        " WHEN REVERSE = 1 AND INELIGIBLE = 1 THEN ? WHEN REVERSE = 1 THEN ?"
                        " WHEN INELIGIBLE = 1 THEN ? ELSE '' END FROM SUPPLY WHERE SUPPLY.VOUCH_NO ="
                        " SALE.VOUCH_NO AND SUPPLY.BOOK_CD = SALE.BOOK_CD) AS MARKS",
          .values = names};
}
